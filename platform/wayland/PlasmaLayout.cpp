// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/wayland/PlasmaLayout.h"

#include <QDBusConnection>
#include <QDBusMessage>

#include <chrono>

namespace zamber::wayland {

namespace {

constexpr std::chrono::milliseconds LONGEST_LAYOUT_ANSWER{250};

} // namespace

std::uint32_t activePlasmaLayout() {
    QDBusMessage message =
        QDBusMessage::createMethodCall(QStringLiteral("org.kde.keyboard"), QStringLiteral("/Layouts"),
                                       QStringLiteral("org.kde.KeyboardLayouts"), QStringLiteral("getLayout"));
    message.setAutoStartService(false);
    const QDBusMessage answer =
        QDBusConnection::sessionBus().call(message, QDBus::Block, static_cast<int>(LONGEST_LAYOUT_ANSWER.count()));
    return answer.type() == QDBusMessage::ReplyMessage ? answer.arguments().value(0).toUInt() : 0;
}

} // namespace zamber::wayland
