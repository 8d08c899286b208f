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

    /// Posts the paste keystroke. A target that has gone or does not come leaves it to whichever application is in
    /// front. Calls are carried out one after the other, and `done` is called once for each, on the main loop.
    ///
    /// Where no server of the desktop's has the clipboard but this program, it waits for at most two seconds until the
    /// user has let go of the modifiers and the hot keys, the clipboard holds what belongs to this paste, and the
    /// target, if one is given, is in front. Then nothing is posted once another program has copied since the write,
    /// and nothing to a window of this program that was not in front at the call nor the target; each call pastes its
    /// own content, whatever the program has written since, and after the last of them the clipboard holds the last
    /// write.
    virtual void postPaste(const Paste& paste, Done done) = 0;
};

} // namespace zamber
