// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/AppBundle.h"

namespace zamber::macos {

/// The main bundle and its information dictionary.
class MacAppBundle final : public AppBundle {
public:
    QString path() const override;
    std::optional<QString> version() const override;
    std::optional<QString> build() const override;
};

} // namespace zamber::macos
