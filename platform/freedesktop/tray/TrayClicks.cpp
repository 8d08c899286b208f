// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/tray/TrayClicks.h"

#include "platform/freedesktop/popover/PopoverWindow.h"

#include <chrono>

namespace zamber::freedesktop::tray {

using popover::PopoverWindow;

namespace {

/// How long after a button's release a host may tell of the click. A busy panel takes its time.
constexpr std::chrono::milliseconds LATEST_NEWS{1000};
/// The longest time from a press to the news of its click, for a hand that does not dwell on the button.
constexpr std::chrono::milliseconds LONGEST_CLICK{600};
/// A click begins and ends on one icon; those of the largest panels are not wider.
constexpr int WIDEST_ICON = 64; // points

} // namespace

TrayClicks::TrayClicks(PopoverWindow& popover, PointerButtons& buttons, Scheduler& scheduler)
    : m_popover(popover)
    , m_buttons(buttons)
    , m_expiry(scheduler, LATEST_NEWS, [this] { forgetClosingPress(); })
    , m_abandonment(scheduler, LONGEST_CLICK, [] {}) {
    popover.setPressFilter([this](Qt::MouseButton button, QPoint place) { return isLeftToClick(button, place); });
    connect(&buttons, &PointerButtons::pressed, this, &TrayClicks::handlePress);
    connect(&buttons, &PointerButtons::released, this, &TrayClicks::handleRelease);
    connect(&popover, &PopoverWindow::shown, this, [this] {
        forgetClosingPress();
        m_buttons.setListening(PointerButtons::Listening::On);
    });
    connect(&popover, &PopoverWindow::closed, this, &TrayClicks::handleClosing);
    connect(&popover, &PopoverWindow::abandoned, this, [this] { m_abandonment.start(); });
}

TrayClicks::~TrayClicks() {
    m_popover.setPressFilter({});
    forgetClosingPress();
}

bool TrayClicks::isToBeActedOn(std::optional<QPoint> pointer) {
    m_buttons.catchUp();
    if (m_popover.isShown()) {
        return true;
    }
    if (!pointer) {
        const bool isSameClick = m_abandonment.isActive();
        m_abandonment.stop();
        return !isSameClick;
    }
    if (!m_closingPress) {
        return true;
    }
    const bool isSamePlace = (*m_closingPress - *pointer).manhattanLength() <= WIDEST_ICON;
    forgetClosingPress();
    return !isSamePlace;
}

void TrayClicks::closePopoverForMenu() {
    m_popover.performClose();
}

bool TrayClicks::isLeftToClick(Qt::MouseButton button, QPoint place) const {
    if (button != Qt::LeftButton || !m_embeddedIcon) {
        return false;
    }
    const std::optional<QRect> icon = m_embeddedIcon();
    return icon && icon->contains(place);
}

void TrayClicks::handlePress(Qt::MouseButton button, QPoint place) {
    forgetClosingPress();
    if (!m_popover.isShown()) {
        return;
    }
    if (button == Qt::LeftButton) {
        m_closingPress = place;
    }
    m_popover.press(button, place);
    if (m_popover.isShown()) {
        m_closingPress.reset();
    }
}

void TrayClicks::handleRelease() {
    if (m_closingPress && !m_expiry.isActive()) {
        m_expiry.start();
    }
}

void TrayClicks::handleClosing() {
    // After a press that may begin a click on the icon, the next press has to be seen too: it begins another click.
    if (!m_closingPress) {
        m_buttons.setListening(PointerButtons::Listening::Off);
    }
}

void TrayClicks::forgetClosingPress() {
    m_expiry.stop();
    if (m_closingPress) {
        m_closingPress.reset();
        if (!m_popover.isShown()) {
            m_buttons.setListening(PointerButtons::Listening::Off);
        }
    }
}

} // namespace zamber::freedesktop::tray
