// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Workspace.h"

#include <functional>
#include <optional>

namespace zamber {

/// What is pasted where.
struct Paste {
    /// The pasteboard's, just after the program has written there what is to be pasted.
    int changeCount = 0;

    /// The application to wait for; nothing means whichever is in front when the keystroke can be typed.
    std::optional<RunningApplication> target;
};

enum class PasteOutcome {
    Posted,
    GivenUp, ///< nothing was typed, on purpose
};

/// Types the paste keystroke for the user.
class KeystrokePoster {
public:
    using Done = std::function<void(PasteOutcome)>;

    virtual ~KeystrokePoster() = default;

    /// Posts the paste keystroke once it is safe: for at most two seconds it waits until the user has let go of the
    /// modifiers and the hot keys, the clipboard holds what belongs to this paste, and the target, if one is given,
    /// is in front. A target that has gone or does not come leaves the keystroke to whichever application is in front,
    /// but never to a window of this program that was not in front at the call nor the target. Where another program
    /// has copied since the write, nothing is posted.
    ///
    /// Calls are carried out one after the other, each with its own content, whatever the program has written since;
    /// after the last of them the clipboard holds the last write.
    ///
    /// `done` is called once on the main loop.
    virtual void postPaste(const Paste& paste, Done done) = 0;
};

} // namespace zamber
