// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/AppBundle.h"

namespace zamber::freedesktop {

/// Where there are no bundles, the program is its executable file, and version and build are those it was built with.
/// Usable once there is the application object.
class BuiltAppBundle final : public AppBundle {
public:
    QString path() const override;
    std::optional<QString> version() const override;
    std::optional<QString> build() const override;
};

} // namespace zamber::freedesktop
