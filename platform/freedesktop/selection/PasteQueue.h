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

/// Carries out pastes one after the other. Each waits until it is safe to type its keystroke: the port names the
/// conditions. A derived class for each desktop types the keystroke and chooses the window.
///
/// A program that receives the keystroke asks for the clipboard's content a while later. The content of the next paste
/// is put on the clipboard only after that program has had time to ask.
class PasteQueue : public QObject, public KeystrokePoster {
    Q_OBJECT

public:
    /// The longest time that a paste waits for its target, for keys that the user holds, and for the clipboard.
    static constexpr std::chrono::milliseconds LONGEST_WAIT{2000};

    /// The longest time where nothing can be typed while keys are held.
    static constexpr std::chrono::milliseconds LONGEST_HOLD{10'000};

    void postPaste(const Paste& paste, Done done) override;

protected:
    /// The desktop's own number of a window.
    using Window = std::uint64_t;

    struct Order {
        Paste paste;
        std::optional<Window> ownWindowInFront; // at the time of the call, if it was one of this program's
        Done done;
    };

    /// The scheduler outlives the queue.
    PasteQueue(SelectionPasteboard& pasteboard, Scheduler& scheduler);

    /// The paste that is being carried out. There is one from `beginWaiting` until `endWaiting`.
    const Order& current() const { return m_orders.front(); }

    /// To be called when the answer of `isReady` may have changed.
    void postWhenReady();

    /// The window in front, if it is one of this program's.
    virtual std::optional<Window> ownWindowInFront() const = 0;

    /// Begin and end listening for events that `isReady` depends on.
    virtual void beginWaiting() {}
    virtual void endWaiting() {}

    /// Whether the target is in front, and no key that the user holds would change the keystroke.
    virtual bool isReady() const = 0;

    /// Whether keys that the user holds would take the keystroke away, so that it cannot be typed before they are up.
    virtual bool isHeldUpByKeys() const { return false; }

    /// The window in front. Nothing where there is none, or where it is one of this program's and not the target.
    virtual std::optional<Window> windowToTypeInto() const = 0;
    virtual PasteKeystroke keystrokeFor(Window window) const = 0;

    /// Types the keystroke. False, and nothing is typed, when the window is no longer in front.
    virtual bool type(Window window, PasteKeystroke keystroke) = 0;

    /// Whether the program that got the keystroke may be the one whose window asked for the clipboard's content.
    virtual bool mayBeReader(std::uint32_t /*window*/) const { return true; }

private:
    enum class Step {
        Idle,
        Waiting,    // for the conditions
        Typing,     // perhaps still waiting for PRIMARY
        BeingAsked, // until the program has asked for the content
    };

    void begin();
    void decide();
    void post();
    void finish(PasteOutcome outcome);
    void handleServed(std::uint32_t window);
    void continueWithNext();

    SelectionPasteboard& m_pasteboard;
    std::deque<Order> m_orders; // the first one is being carried out
    Step m_step = Step::Idle;
    int m_pasted = 0; // the change count of the last paste's content
    SingleShotTimer m_bound;
    SingleShotTimer m_holdBound;
    SingleShotTimer m_askingBound;
    SingleShotTimer m_askingPause;
};

} // namespace zamber::freedesktop::selection
