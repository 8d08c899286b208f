// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/session/PortalAppearance.h"

#include "platform/freedesktop/session/BusSignals.h"

#include <QApplication>
#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QEvent>
#include <QPalette>

namespace zamber::freedesktop::session {

using namespace Qt::StringLiterals;

namespace {

const auto SERVICE = u"org.freedesktop.portal.Desktop"_s;
const auto PATH = u"/org/freedesktop/portal/desktop"_s;
const auto INTERFACE = u"org.freedesktop.portal.Settings"_s;

const auto APPEARANCE_GROUP = u"org.freedesktop.appearance"_s;
const auto COLOR_SCHEME = u"color-scheme"_s;
const auto ACCENT_COLOR = u"accent-color"_s;
const auto REDUCED_MOTION = u"reduced-motion"_s;
const auto INTERFACE_GROUP = u"org.gnome.desktop.interface"_s;
const auto ENABLE_ANIMATIONS = u"enable-animations"_s;

const QColor USUAL_ACCENT(0x1F, 0x78, 0xF0);

/// 1 prefers dark, 2 prefers light, everything else has no preference.
std::optional<bool> darkness(const QVariant& value) {
    switch (value.toUInt()) {
    case 1:
        return true;
    case 2:
        return false;
    default:
        return std::nullopt;
    }
}

/// Three numbers from 0 to 1; anything outside means that the user has chosen none.
std::optional<QColor> color(const QVariant& value) {
    const auto argument = value.value<QDBusArgument>();
    if (argument.currentSignature() != u"(ddd)"_s) {
        return std::nullopt;
    }
    double red = -1;
    double green = -1;
    double blue = -1;
    argument.beginStructure();
    argument >> red >> green >> blue;
    argument.endStructure();
    const auto isChannel = [](double channel) { return channel >= 0 && channel <= 1; };
    if (!isChannel(red) || !isChannel(green) || !isChannel(blue)) {
        return std::nullopt;
    }
    return QColor::fromRgbF(static_cast<float>(red), static_cast<float>(green), static_cast<float>(blue));
}

QVariant withoutWrapping(QVariant value) {
    while (value.metaType() == QMetaType::fromType<QDBusVariant>()) {
        value = value.value<QDBusVariant>().variant();
    }
    return value;
}

} // namespace

PortalAppearance::PortalAppearance(const QDBusConnection& bus)
    : m_bus(bus)
    , m_told(answers()) {
    QCoreApplication::instance()->installEventFilter(this);
    if (!m_bus.isConnected()) {
        return;
    }
    subscribe(m_bus, {.service = SERVICE, .path = PATH, .interface = INTERFACE, .name = u"SettingChanged"_s}, this,
              SLOT(settingChanged(QDBusMessage)));
    for (const QString& key : {COLOR_SCHEME, ACCENT_COLOR, REDUCED_MOTION}) {
        ask(APPEARANCE_GROUP, key);
    }
    ask(INTERFACE_GROUP, ENABLE_ANIMATIONS);
}

bool PortalAppearance::isDark() const {
    constexpr int middleLightness = 128;
    return m_portalIsDark.value_or(QApplication::palette().color(QPalette::Window).lightness() < middleLightness);
}

QColor PortalAppearance::accentColor() const {
    return m_portalAccent.value_or(USUAL_ACCENT);
}

bool PortalAppearance::reducedMotion() const {
    // Qt's own setting is no help: without a desktop environment Qt turns all effects off, though the user has not.
    return m_portalReducesMotion.value_or(false) || !m_desktopAnimates.value_or(true);
}

void PortalAppearance::addChangedHandler(std::function<void()> handler) {
    m_changed.push_back(std::move(handler));
}

PortalAppearance::Answers PortalAppearance::answers() const {
    return {.isDark = isDark(), .accentColor = accentColor(), .reducedMotion = reducedMotion()};
}

void PortalAppearance::tellIfChanged() {
    const Answers now = answers();
    if (now == m_told) {
        return;
    }
    // Before the handlers are called: one that sets a palette brings the program here again.
    m_told = now;
    for (const auto& changed : m_changed) {
        changed();
    }
}

bool PortalAppearance::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ApplicationPaletteChange && watched == QCoreApplication::instance()) {
        tellIfChanged();
    }
    return false;
}

void PortalAppearance::settingChanged(const QDBusMessage& message) {
    if (message.signature() != u"ssv"_s) {
        return;
    }
    const QVariantList arguments = message.arguments();
    take(arguments.at(0).toString(), arguments.at(1).toString(), arguments.at(2));
}

void PortalAppearance::ask(const QString& group, const QString& key) {
    QDBusMessage question = QDBusMessage::createMethodCall(SERVICE, PATH, INTERFACE, u"Read"_s);
    question << group << key;
    auto* answer = new QDBusPendingCallWatcher(m_bus.asyncCall(question), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, group, key](QDBusPendingCallWatcher* finished) {
        const QDBusPendingReply<QDBusVariant> reply = *finished;
        finished->deleteLater();
        if (reply.isValid()) {
            take(group, key, reply.value().variant());
        }
    });
}

void PortalAppearance::take(const QString& group, const QString& key, const QVariant& wrapped) {
    const QVariant value = withoutWrapping(wrapped);
    if (group == APPEARANCE_GROUP && key == COLOR_SCHEME) {
        m_portalIsDark = darkness(value);
    } else if (group == APPEARANCE_GROUP && key == ACCENT_COLOR) {
        m_portalAccent = color(value);
    } else if (group == APPEARANCE_GROUP && key == REDUCED_MOTION) {
        m_portalReducesMotion = value.toUInt() == 1;
    } else if (group == INTERFACE_GROUP && key == ENABLE_ANIMATIONS) {
        m_desktopAnimates = value.toBool();
    }
    tellIfChanged();
}

} // namespace zamber::freedesktop::session
