// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/LoginItem.h"

namespace zamber::macos {

/// The main application's entry in the system's login-item database.
class MacLoginItem final : public LoginItem {
public:
    LoginItemStatus status() const override;
    std::expected<void, QString> registerItem() override;
    std::expected<void, QString> unregisterItem() override;
};

} // namespace zamber::macos
