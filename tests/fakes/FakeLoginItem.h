// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/LoginItem.h"

#include <optional>

namespace zamber {

/// A desktop's record of login items with one line.
class FakeLoginItem final : public LoginItem {
public:
    LoginItemStatus status() const override { return current; }
    std::expected<void, QString> registerItem() override { return change(LoginItemStatus::Enabled); }
    std::expected<void, QString> unregisterItem() override { return change(LoginItemStatus::NotRegistered); }

    LoginItemStatus current = LoginItemStatus::NotRegistered;
    std::optional<QString> failure; ///< of every change, from now on
    int changesAsked = 0;

private:
    std::expected<void, QString> change(LoginItemStatus status) {
        ++changesAsked;
        if (failure) {
            return std::unexpected(*failure);
        }
        current = status;
        return {};
    }
};

} // namespace zamber
