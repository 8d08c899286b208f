// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/x11/XWaylandTrust.h"

#include "platform/freedesktop/portal/PortalHotKeyCenter.h"
#include "platform/freedesktop/portal/PortalKeyboard.h"
#include "platform/x11/Windows.h"

namespace zamber::x11 {

using freedesktop::portal::PortalHotKeyCenter;
using freedesktop::portal::PortalKeyboard;

XWaylandTrust::XWaylandTrust(Connection& connection, Windows& windows, PortalKeyboard& keyboard,
                             const PortalHotKeyCenter& hotKeys)
    : m_windows(windows)
    , m_trustOfX(connection)
    , m_keyboard(keyboard)
    , m_hotKeys(hotKeys) {}

bool XWaylandTrust::isTrusted() const {
    switch (m_keyboard.consent()) {
    case PortalKeyboard::Consent::Given:
        return true;
    case PortalKeyboard::Consent::Missing:
        return false;
    case PortalKeyboard::Consent::NotOffered:
    case PortalKeyboard::Consent::Unknown:
        break;
    }
    return m_trustOfX.isTrusted();
}

bool XWaylandTrust::isTrustedInFront() const {
    return m_keyboard.consent() == PortalKeyboard::Consent::Given ||
           (m_trustOfX.isTrusted() && m_windows.activeWindow().has_value());
}

void XWaylandTrust::whenKnown(std::function<void()> known) {
    const auto again = [this, known] { whenKnown(known); };
    if (m_keyboard.consent() == PortalKeyboard::Consent::Unknown) {
        QObject::connect(&m_keyboard, &PortalKeyboard::changed, &m_keyboard, again, Qt::SingleShotConnection);
    } else if (m_hotKeys.isAsking()) {
        QObject::connect(&m_hotKeys, &PortalHotKeyCenter::settled, &m_keyboard, again, Qt::SingleShotConnection);
    } else {
        known();
    }
}

bool XWaylandTrust::hasDialog() const {
    return m_keyboard.consent() == PortalKeyboard::Consent::Missing;
}

void XWaylandTrust::showDialog() const {
    m_keyboard.askForConsent();
}

} // namespace zamber::x11
