// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/QtKeyMonitor.h"

#include <QApplication>
#include <QKeyEvent>

#include <algorithm>

namespace zamber::freedesktop {

namespace {

HardwareKey hardwareKey(quint32 scanCode) {
    switch (scanCode) {
    case 111:
        return HardwareKey::UpArrow;
    case 116:
        return HardwareKey::DownArrow;
    case 36:
        return HardwareKey::Return;
    case 9:
        return HardwareKey::Escape;
    default:
        return HardwareKey::Other;
    }
}

} // namespace

QtKeyMonitor::QtKeyMonitor() {
    QCoreApplication::instance()->installEventFilter(this);
}

KeyMonitor::Token QtKeyMonitor::addHandler(Handler handler) {
    m_handlers.emplace_back(++m_lastId, std::move(handler));
    return {m_lastId};
}

void QtKeyMonitor::removeHandler(Token token) {
    std::erase_if(m_handlers, [token](const auto& entry) { return entry.first == token.id; });
}

bool QtKeyMonitor::eventFilter(QObject* watched, QEvent* event) {
    // A press comes to a window first and is then handed down to its widgets. Only the first of these events counts.
    const bool isPress = event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride;
    if (!isPress || !watched->isWindowType()) {
        return false;
    }
    if (QApplication::activePopupWidget() != nullptr) {
        return false;
    }
    const HardwareKey key = hardwareKey(static_cast<const QKeyEvent*>(event)->nativeScanCode());
    if (event->type() == QEvent::ShortcutOverride) {
        // Qt asks whether to keep the press from the shortcuts, perhaps before earlier presses have been delivered. So
        // no handler may act yet; the press itself follows.
        if (key == HardwareKey::Other || m_handlers.empty()) {
            return false;
        }
        event->accept();
        return true;
    }
    return ask(key) == KeyDisposition::Swallow;
}

KeyDisposition QtKeyMonitor::ask(HardwareKey key) {
    // A handler may remove itself or others: those that are gone are not asked any more.
    const auto handlers = m_handlers;
    for (const auto& [id, handler] : handlers) {
        const bool isStillThere = std::ranges::any_of(m_handlers, [&](const auto& entry) { return entry.first == id; });
        if (isStillThere && handler(key) == KeyDisposition::Swallow) {
            return KeyDisposition::Swallow;
        }
    }
    return KeyDisposition::PassOn;
}

} // namespace zamber::freedesktop
