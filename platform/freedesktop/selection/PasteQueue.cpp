// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/selection/PasteQueue.h"

#include <utility>

namespace zamber::freedesktop::selection {

namespace {

/// The longest time that a program which got the keystroke is given to ask for the content; it may be busy.
constexpr std::chrono::milliseconds LONGEST_ASKING{1000};

/// A program that has asked and then asks for nothing more during this time has all that it wants.
constexpr std::chrono::milliseconds PAUSE_AFTER_ASKING{60};

} // namespace

PasteQueue::PasteQueue(SelectionPasteboard& pasteboard, Scheduler& scheduler)
    : m_pasteboard(pasteboard)
    , m_bound(scheduler, LONGEST_WAIT, [this] { decide(); })
    , m_holdBound(scheduler, LONGEST_HOLD,
                  [this] {
                      if (m_step == Step::Waiting) {
                          finish(PasteOutcome::GivenUp);
                      }
                  })
    , m_askingBound(scheduler, LONGEST_ASKING, [this] { continueWithNext(); })
    , m_askingPause(scheduler, PAUSE_AFTER_ASKING, [this] { continueWithNext(); }) {
    connect(&pasteboard, &SelectionPasteboard::ownershipChanged, this, &PasteQueue::postWhenReady);
    connect(&pasteboard, &SelectionPasteboard::served, this, &PasteQueue::handleServed);
}

void PasteQueue::postPaste(const Paste& paste, Done done) {
    m_orders.push_back({.paste = paste, .ownWindowInFront = ownWindowInFront(), .done = std::move(done)});
    const bool isSameContent = m_step == Step::BeingAsked && paste.changeCount == m_pasted;
    if (m_orders.size() == 1 && (m_step == Step::Idle || isSameContent)) {
        begin();
    }
}

void PasteQueue::begin() {
    m_step = Step::Waiting;
    m_askingBound.stop();
    m_askingPause.stop();
    m_pasteboard.holdWrites();
    m_bound.start();
    m_holdBound.start();
    beginWaiting();
    postWhenReady();
}

void PasteQueue::postWhenReady() {
    if (m_step != Step::Waiting) {
        return;
    }
    const int changeCount = current().paste.changeCount;
    switch (m_pasteboard.standingOf(changeCount)) {
    case SelectionPasteboard::Standing::Lost:
        finish(PasteOutcome::GivenUp);
        return;
    case SelectionPasteboard::Standing::Pending:
        m_pasteboard.offer(changeCount);
        return;
    case SelectionPasteboard::Standing::Offered:
        break;
    }
    if (isReady()) {
        post();
    }
}

void PasteQueue::decide() {
    if (m_step != Step::Waiting) {
        return;
    }
    if (m_pasteboard.standingOf(current().paste.changeCount) == SelectionPasteboard::Standing::Offered) {
        if (!isHeldUpByKeys()) { // else it is typed when the keys are up
            post();
        }
    } else {
        finish(PasteOutcome::GivenUp);
    }
}

void PasteQueue::post() {
    m_step = Step::Typing;
    const std::optional<Window> window = windowToTypeInto();
    if (!window) {
        finish(PasteOutcome::GivenUp);
        return;
    }
    const PasteKeystroke keystroke = keystrokeFor(*window);
    const auto typeIt = [this, window, keystroke] {
        if (type(*window, keystroke)) {
            finish(PasteOutcome::Posted);
        } else if (m_bound.isActive()) {
            m_step = Step::Waiting; // another window came to the front at that very moment
        } else {
            finish(PasteOutcome::GivenUp);
        }
    };
    if (keystroke == PasteKeystroke::ShiftInsert) {
        m_pasteboard.borrowPrimary(current().paste.changeCount, typeIt);
    } else {
        typeIt();
    }
}

void PasteQueue::finish(PasteOutcome outcome) {
    m_bound.stop();
    m_holdBound.stop();
    endWaiting();
    m_step = Step::BeingAsked;
    // Called while this paste still stands in the queue: the callback may post another one, which must not begin yet.
    const Done done = std::move(m_orders.front().done);
    const int changeCount = current().paste.changeCount;
    done(outcome);
    m_orders.pop_front();
    const bool isNextTheSame = !m_orders.empty() && current().paste.changeCount == changeCount;
    if (outcome == PasteOutcome::GivenUp || isNextTheSame) {
        continueWithNext();
        return;
    }
    m_pasted = changeCount;
    m_askingBound.start();
}

void PasteQueue::handleServed(std::uint32_t window) {
    // Some programs ask several times, for one type after another.
    if (m_step == Step::BeingAsked && mayBeReader(window)) {
        m_askingPause.start();
    }
}

void PasteQueue::continueWithNext() {
    m_askingBound.stop();
    m_askingPause.stop();
    m_step = Step::Idle;
    m_pasteboard.giveBackPrimary();
    if (!m_orders.empty()) {
        begin();
    } else {
        m_pasteboard.showWrites();
    }
}

} // namespace zamber::freedesktop::selection
