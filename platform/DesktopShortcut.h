// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <expected>

namespace zamber {

/// What the desktop knows of the program as the command of a shortcut.
enum class DesktopShortcutStatus {
    NotOffered, ///< the desktop has no shortcuts that a program could set
    NotSet,
    Set, ///< ⌘⇧V is the desktop's own shortcut and starts the running program once more
};

/// ⌘⇧V as one of the desktop's own shortcuts, for desktops that keep the Command key to themselves: there no program
/// hears of what is pressed with it. A second start shows the history of the program that runs. The desktop's record is
/// the only one; it is changed when the user wants it and at no other time.
class DesktopShortcut {
public:
    virtual ~DesktopShortcut() = default;

    /// Read from the desktop at each call.
    virtual DesktopShortcutStatus status() const = 0;

    /// The user's other shortcuts stay as they are. The error is a sentence for people: the desktop's own text, or that
    /// the combination starts something else already.
    virtual std::expected<void, QString> set() = 0;

    /// A shortcut that is not set is no error.
    virtual std::expected<void, QString> remove() = 0;
};

} // namespace zamber
