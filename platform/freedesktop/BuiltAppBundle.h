// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/AppBundle.h"

namespace zamber::freedesktop {

/// There are no bundles here: the program is its executable file, and version and build are those it was built with.
/// To be asked after the application object was made.
class BuiltAppBundle final : public AppBundle {
public:
    QString path() const override;
    std::optional<QString> version() const override;
    std::optional<QString> build() const override;
};

} // namespace zamber::freedesktop
