// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/KeystrokePoster.h"
#include "platform/freedesktop/selection/SelectionPasteboard.h"
#include "platform/wayland/Toplevels.h"

#include <QTimer>

#include <chrono>
#include <deque>
#include <optional>

namespace zamber::wayland {

class VirtualKeyboard;

/// Types the paste keystroke by a keyboard of our own, when it can only do what the user meant. See the port for what
/// is waited for; the keys that the user holds are of another keyboard and do no harm.
///
/// A program that is told to paste asks for the clipboard a while later. Before the clipboard gets what the next paste
/// inserts, it has time to ask.
class VirtualKeystrokePoster final : public QObject, public KeystrokePoster {
    Q_OBJECT

public:
    using SelectionPasteboard = freedesktop::selection::SelectionPasteboard;

    static constexpr std::chrono::milliseconds LONGEST_WAIT{2000};

    VirtualKeystrokePoster(VirtualKeyboard& keyboard, Toplevels& toplevels, SelectionPasteboard& pasteboard);

    void postPaste(const Paste& paste, Done done) override;

private:
    struct Order {
        Paste paste;
        std::optional<std::uint64_t> ownWindowInFront; // of this program, at the call
        Done done;
    };

    enum class Step {
        Idle,
        Waiting,    // until it is safe to type
        Typing,     // until PRIMARY is there
        BeingAsked, // until the program that was typed into has asked for the content
    };

    void begin();
    void postWhenReady();
    void decide();
    void post();
    void finish(PasteOutcome outcome);
    void handleServed();
    void continueWithNext();
    bool isTargetInFront() const;
    bool mayType() const;

    VirtualKeyboard& m_keyboard;
    Toplevels& m_toplevels;
    SelectionPasteboard& m_pasteboard;
    std::deque<Order> m_orders; // the first one is under way
    Step m_step = Step::Idle;
    int m_pasted = 0; // the change count of what was pasted last
    QTimer m_bound;
    QTimer m_askingBound;
    QTimer m_askingPause;
};

} // namespace zamber::wayland
