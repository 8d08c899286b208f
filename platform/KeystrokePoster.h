// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Workspace.h"

#include <functional>
#include <optional>

namespace zamber {

/// Types the paste keystroke for the user.
class KeystrokePoster {
public:
    virtual ~KeystrokePoster() = default;

    /// Posts the paste keystroke to whoever is in front, once it is safe: for at most two seconds it waits until the
    /// user has let go of the modifiers, the clipboard holds what this program wrote, and the target, if one is
    /// given, is in front. A target that has gone or does not come leaves the keystroke to whoever is in front, but
    /// never to a window of this program that was not the target. Where the clipboard is not ours any more nothing
    /// is posted. Calls are carried out one after the other.
    ///
    /// `done` is called once on the main loop when the keystroke was posted or given up.
    virtual void postPaste(const std::optional<RunningApplication>& target, std::function<void()> done) = 0;
};

} // namespace zamber
