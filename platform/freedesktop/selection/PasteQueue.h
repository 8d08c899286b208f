// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/KeystrokePoster.h"
#include "platform/SingleShotTimer.h"
#include "platform/freedesktop/selection/PasteKeystroke.h"
#include "platform/freedesktop/selection/SelectionPasteboard.h"

#include <QObject>

#include <chrono>
#include <cstdint>
#include <deque>
#include <optional>

namespace zamber::freedesktop::selection {

/// Pastes one after the other, each when its keystroke can only do what the user meant; see the port for what is waited
/// for. How the keystroke is typed, and into which window, is left to the desktop's own class.
///
/// A program that is told to paste asks for the clipboard a while later. Before the clipboard gets what the next paste
/// inserts, that program has time to ask.
class PasteQueue : public QObject, public KeystrokePoster {
    Q_OBJECT

public:
    /// How long a paste waits for the target, the user's hands and the clipboard.
    static constexpr std::chrono::milliseconds LONGEST_WAIT{2000};

    void postPaste(const Paste& paste, Done done) override;

protected:
    /// A window, by the number that its desktop knows it by.
    using Window = std::uint64_t;

    struct Order {
        Paste paste;
        std::optional<Window> ownWindowInFront; // of this program, at the call
        Done done;
    };

    /// The scheduler outlives the queue.
    PasteQueue(SelectionPasteboard& pasteboard, Scheduler& scheduler);

    /// The paste under way; there is one from `beginWaiting` until its keystroke has been typed or given up.
    const Order& current() const { return m_orders.front(); }

    /// To be called when an answer of `isReady` may have changed.
    void postWhenReady();

    /// The window in front, if it is one of this program's.
    virtual std::optional<Window> ownWindowInFront() const = 0;

    /// A chance to listen for what `isReady` depends on, and the end of it.
    virtual void beginWaiting() {}
    virtual void endWaiting() {}

    /// Whether the target is in front, and no key that the user holds would change the keystroke.
    virtual bool isReady() const = 0;

    /// The window in front; nothing where there is none, or where it is one of this program's that nobody meant.
    virtual std::optional<Window> windowToTypeInto() const = 0;
    virtual PasteKeystroke keystrokeFor(Window window) const = 0;

    /// Types, and says whether it has: not when the window is no longer in front.
    virtual bool type(Window window, PasteKeystroke keystroke) = 0;

    /// Whether the program that was typed into may be the one that has asked for the clipboard with this window.
    virtual bool mayBeReader(std::uint32_t /*window*/) const { return true; }

private:
    enum class Step {
        Idle,
        Waiting,    // until it is safe to type
        Typing,     // until PRIMARY is there
        BeingAsked, // until the program that was typed into has asked for the content
    };

    void begin();
    void decide();
    void post();
    void finish(PasteOutcome outcome);
    void handleServed(std::uint32_t window);
    void continueWithNext();

    SelectionPasteboard& m_pasteboard;
    std::deque<Order> m_orders; // the first one is under way
    Step m_step = Step::Idle;
    int m_pasted = 0; // the change count of what was pasted last
    SingleShotTimer m_bound;
    SingleShotTimer m_askingBound;
    SingleShotTimer m_askingPause;
};

} // namespace zamber::freedesktop::selection
