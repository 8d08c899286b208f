// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <expected>

namespace zamber {

/// What the desktop knows of the program as a login item.
enum class LoginItemStatus {
    NotRegistered,
    Enabled,          ///< it starts at the next login
    RequiresApproval, ///< registered, but switched off in the desktop's own settings
    NotFound,         ///< registered, but what it would start is not there
};

/// The program's place in what the desktop starts at login. The desktop's record is the only one.
class LoginItem {
public:
    virtual ~LoginItem() = default;

    /// Read from the desktop at each call.
    virtual LoginItemStatus status() const = 0;

    /// Has the running program started at login. The error is the desktop's own text. Where the record is the program's
    /// own to write, this also clears what switched it off; elsewhere that is the user's to clear.
    virtual std::expected<void, QString> registerItem() = 0;

    /// Has it started no more. Asking for what is so already is an error only where the desktop says that it is one.
    virtual std::expected<void, QString> unregisterItem() = 0;
};

} // namespace zamber
