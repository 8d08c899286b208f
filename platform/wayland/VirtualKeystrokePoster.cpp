// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/wayland/VirtualKeystrokePoster.h"

#include "platform/freedesktop/selection/PasteKeystroke.h"
#include "platform/wayland/VirtualKeyboard.h"

#include <utility>

namespace zamber::wayland {

namespace {

using freedesktop::selection::PasteKeystroke;

/// Time for a program that was told to paste to ask for the content, if it is busy.
constexpr std::chrono::milliseconds LONGEST_ASKING{1000};

/// A program that has asked and is silent for this time has what it wants.
constexpr std::chrono::milliseconds PAUSE_AFTER_ASKING{60};

/// A window of this program: by its own id, or by XWayland's class of it.
bool isOurs(const Toplevels::Toplevel& toplevel) {
    return toplevel.applicationId.compare(QStringLiteral("app.zamber.Zamber"), Qt::CaseInsensitive) == 0 ||
           toplevel.applicationId.compare(QStringLiteral("zamber"), Qt::CaseInsensitive) == 0;
}

} // namespace

VirtualKeystrokePoster::VirtualKeystrokePoster(VirtualKeyboard& keyboard, Toplevels& toplevels,
                                               SelectionPasteboard& pasteboard)
    : m_keyboard(keyboard)
    , m_toplevels(toplevels)
    , m_pasteboard(pasteboard) {
    for (QTimer* const timer : {&m_bound, &m_askingBound, &m_askingPause}) {
        timer->setSingleShot(true);
    }
    m_bound.setInterval(LONGEST_WAIT);
    m_askingBound.setInterval(LONGEST_ASKING);
    m_askingPause.setInterval(PAUSE_AFTER_ASKING);
    connect(&m_bound, &QTimer::timeout, this, &VirtualKeystrokePoster::decide);
    connect(&m_askingBound, &QTimer::timeout, this, &VirtualKeystrokePoster::continueWithNext);
    connect(&m_askingPause, &QTimer::timeout, this, &VirtualKeystrokePoster::continueWithNext);
    connect(&toplevels, &Toplevels::activeChanged, this, &VirtualKeystrokePoster::postWhenReady);
    connect(&pasteboard, &SelectionPasteboard::ownershipChanged, this, &VirtualKeystrokePoster::postWhenReady);
    connect(&pasteboard, &SelectionPasteboard::served, this, &VirtualKeystrokePoster::handleServed);
}

void VirtualKeystrokePoster::postPaste(const Paste& paste, Done done) {
    const std::optional<Toplevels::Toplevel> front = m_toplevels.active();
    m_orders.push_back({.paste = paste,
                        .ownWindowInFront = front && isOurs(*front) ? std::optional(front->handle) : std::nullopt,
                        .done = std::move(done)});
    const bool isSameContent = m_step == Step::BeingAsked && paste.changeCount == m_pasted;
    if (m_orders.size() == 1 && (m_step == Step::Idle || isSameContent)) {
        begin();
    }
}

void VirtualKeystrokePoster::begin() {
    m_step = Step::Waiting;
    m_askingBound.stop();
    m_askingPause.stop();
    m_pasteboard.holdWrites();
    m_bound.start();
    postWhenReady();
}

void VirtualKeystrokePoster::postWhenReady() {
    if (m_step != Step::Waiting) {
        return;
    }
    const int changeCount = m_orders.front().paste.changeCount;
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
    if (isTargetInFront()) {
        post();
    }
}

void VirtualKeystrokePoster::decide() {
    if (m_step != Step::Waiting) {
        return;
    }
    if (m_pasteboard.standingOf(m_orders.front().paste.changeCount) == SelectionPasteboard::Standing::Offered) {
        post();
    } else {
        finish(PasteOutcome::GivenUp);
    }
}

void VirtualKeystrokePoster::post() {
    m_step = Step::Typing;
    if (!mayType()) {
        finish(PasteOutcome::GivenUp);
        return;
    }
    const PasteKeystroke keystroke = freedesktop::selection::pasteKeystrokeOf(m_toplevels.active()->applicationId);
    const auto type = [this, keystroke] {
        if (mayType()) {
            m_keyboard.type(keystroke);
            finish(PasteOutcome::Posted);
        } else {
            finish(PasteOutcome::GivenUp);
        }
    };
    if (keystroke == PasteKeystroke::ShiftInsert) {
        m_pasteboard.borrowPrimary(m_orders.front().paste.changeCount, type);
    } else {
        type();
    }
}

void VirtualKeystrokePoster::finish(PasteOutcome outcome) {
    m_bound.stop();
    m_step = Step::BeingAsked;
    // Told before the next one begins, and while this one still stands in the queue: the call may ask for another.
    const Done done = std::move(m_orders.front().done);
    const int changeCount = m_orders.front().paste.changeCount;
    done(outcome);
    m_orders.pop_front();
    const bool isNextTheSame = !m_orders.empty() && m_orders.front().paste.changeCount == changeCount;
    if (outcome == PasteOutcome::GivenUp || isNextTheSame) {
        continueWithNext();
        return;
    }
    m_pasted = changeCount;
    m_askingBound.start();
}

void VirtualKeystrokePoster::handleServed() {
    // By whom is not told. Some programs ask more than once, for one form after another.
    if (m_step == Step::BeingAsked) {
        m_askingPause.start();
    }
}

void VirtualKeystrokePoster::continueWithNext() {
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

bool VirtualKeystrokePoster::isTargetInFront() const {
    const std::optional<RunningApplication>& target = m_orders.front().paste.target;
    const std::optional<Toplevels::Toplevel> front = m_toplevels.active();
    if (target && m_toplevels.isOpen(target->handle)) {
        return front && front->handle == target->handle;
    }
    return mayType(); // nobody to wait for, or nobody any more: whoever is in front
}

bool VirtualKeystrokePoster::mayType() const {
    const std::optional<Toplevels::Toplevel> front = m_toplevels.active();
    const Order& order = m_orders.front();
    if (!front || !isOurs(*front)) {
        return front.has_value();
    }
    return order.paste.target ? front->handle == order.paste.target->handle : front->handle == order.ownWindowInFront;
}

} // namespace zamber::wayland
