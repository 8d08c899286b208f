// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/x11/StuckKeys.h"

#include "platform/freedesktop/KeyPositions.h"
#include "platform/x11/Keyboard.h"

#include <QCoreApplication>
#include <QKeyEvent>

#include <xcb/xtest.h>

#include <algorithm>
#include <chrono>

namespace zamber::x11 {

namespace {

/// How often, and how many times, a key is looked at that has been released: a window may get the focus a while later.
constexpr std::chrono::milliseconds LOOK_INTERVAL{20};
constexpr int MOST_LOOKS = 50;

xcb_keycode_t keyCodeOf(PhysicalKey key) {
    return freedesktop::positionOf(key).code;
}

} // namespace

StuckKeys::StuckKeys(Connection& connection, Keyboard& keyboard)
    : m_connection(connection)
    , m_keyboard(keyboard) {
    QCoreApplication::instance()->installEventFilter(this);
    m_look.setInterval(LOOK_INTERVAL);
    connect(&m_look, &QTimer::timeout, this, &StuckKeys::letGo);
}

void StuckKeys::notePress(PhysicalKey key) {
    std::erase(m_released, keyCodeOf(key));
    if (std::ranges::find(m_held, keyCodeOf(key)) == m_held.end()) {
        m_held.push_back(keyCodeOf(key));
    }
}

void StuckKeys::noteRelease(PhysicalKey key) {
    if (std::erase(m_held, keyCodeOf(key)) == 0) {
        return;
    }
    m_released.push_back(keyCodeOf(key));
    m_looksLeft = MOST_LOOKS;
    m_look.start();
    letGo();
}

void StuckKeys::letGo() {
    for (const xcb_keycode_t key : m_released) {
        if (m_keyboard.isDown(key)) {
            xcb_test_fake_input(m_connection.raw(), XCB_KEY_RELEASE, key, XCB_CURRENT_TIME, XCB_WINDOW_NONE, 0, 0, 0);
            m_connection.flush();
        }
    }
    if (--m_looksLeft <= 0) {
        m_look.stop();
        m_released.clear();
    }
}

bool StuckKeys::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress || !watched->isWindowType()) {
        return false;
    }
    const auto code = static_cast<xcb_keycode_t>(static_cast<const QKeyEvent*>(event)->nativeScanCode());
    return std::ranges::find(m_held, code) != m_held.end();
}

} // namespace zamber::x11
