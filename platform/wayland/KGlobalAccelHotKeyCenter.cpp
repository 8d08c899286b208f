// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/wayland/KGlobalAccelHotKeyCenter.h"

#include "platform/freedesktop/KeyPositions.h"
#include "platform/freedesktop/session/BusSignals.h"
#include "platform/wayland/PlasmaCombinations.h"
#include "platform/wayland/SeatKeyboard.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QStringList>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <utility>

namespace zamber::wayland {

namespace {

using namespace Qt::StringLiterals;
using freedesktop::session::subscribe;

constexpr std::chrono::milliseconds LONGEST_ANSWER{1000};

/// A key that is held repeats more often than this.
constexpr std::chrono::milliseconds LONGEST_REPEAT{1500};

/// Fingers that press a hot key have all come up within this time after its own key.
constexpr std::chrono::milliseconds LETTING_GO{200};

/// How a shortcut is set (KGlobalAccel's numbers).
enum SetShortcut : std::uint32_t { Present = 2, NoAutoloading = 4, Default = 8 };

QString service() {
    return QStringLiteral("org.kde.kglobalaccel");
}

QString component() {
    return QStringLiteral("app.zamber.Zamber");
}

/// What a hot key does, as Plasma knows it.
struct Action {
    PhysicalKey key = PhysicalKey::V;
    QLatin1StringView name;  // what the user has chosen for it is kept under it
    QLatin1StringView title; // what the user reads in Plasma's settings
};

constexpr std::array ACTIONS{
    Action{.key = PhysicalKey::V, .name = "history"_L1, .title = "Show the clipboard history"_L1},
    Action{.key = PhysicalKey::Digit2, .name = "paste-second"_L1, .title = "Paste the second entry"_L1},
    Action{.key = PhysicalKey::Digit3, .name = "paste-third"_L1, .title = "Paste the third entry"_L1},
};

const Action& actionOf(PhysicalKey key) {
    return *std::ranges::find(ACTIONS, key, &Action::key);
}

QStringList identityOf(PhysicalKey key) {
    return {component(), actionOf(key).name, QStringLiteral("Zamber"), actionOf(key).title};
}

/// The first argument of the answer, and an invalid one where there is none.
QVariant call(const QString& method, const QVariantList& arguments) {
    QDBusMessage message = QDBusMessage::createMethodCall(service(), QStringLiteral("/kglobalaccel"),
                                                          QStringLiteral("org.kde.KGlobalAccel"), method);
    message.setArguments(arguments);
    message.setAutoStartService(false);
    const QDBusMessage answer =
        QDBusConnection::sessionBus().call(message, QDBus::Block, static_cast<int>(LONGEST_ANSWER.count()));
    return answer.type() == QDBusMessage::ReplyMessage ? answer.arguments().value(0) : QVariant();
}

QList<int> keysOf(const QVariant& answer) {
    auto keys = qdbus_cast<QList<int>>(answer);
    keys.removeAll(0); // stands for a combination that another program has, or for none
    return keys;
}

/// The first keys of the sequences that a method of the newer kind answers with. Of the older kind,
/// "defaultShortcut" answers with what is set now instead.
QList<int> sequences(const QString& method, PhysicalKey key) {
    QList<int> keys;
    const QVariant answer = call(method, {identityOf(key)});
    if (answer.userType() != qMetaTypeId<QDBusArgument>()) {
        return keys;
    }
    const auto list = answer.value<QDBusArgument>();
    list.beginArray();
    while (!list.atEnd()) {
        QList<int> sequence;
        list.beginStructure();
        list >> sequence;
        list.endStructure();
        keys.append(sequence.value(0));
    }
    list.endArray();
    keys.removeAll(0);
    return keys;
}

QList<int> present(PhysicalKey key) {
    return sequences(QStringLiteral("shortcutKeys"), key);
}

QList<int> setShortcut(PhysicalKey key, const QList<int>& combinations, std::uint32_t how) {
    return keysOf(
        call(QStringLiteral("setShortcut"), {identityOf(key), QVariant::fromValue(combinations), QVariant(how)}));
}

} // namespace

bool KGlobalAccelHotKeyCenter::isOffered() {
    const QDBusConnection bus = QDBusConnection::sessionBus();
    return bus.isConnected() && bus.interface()->isServiceRegistered(service());
}

KGlobalAccelHotKeyCenter::KGlobalAccelHotKeyCenter(SeatKeyboard& keyboard, IsWanted isWanted, CloseMenus closeMenus)
    : m_keyboard(keyboard)
    , m_isWanted(std::move(isWanted))
    , m_closeMenus(std::move(closeMenus)) {
    qDBusRegisterMetaType<QList<int>>();
    connect(&keyboard, &SeatKeyboard::keymapChanged, this, &KGlobalAccelHotKeyCenter::bindAgain);
    m_letGo.setSingleShot(true);
    m_letGo.callOnTimeout(this, [this] {
        m_heldAction.clear();
        Q_EMIT heldKeysChanged();
    });
}

KGlobalAccelHotKeyCenter::~KGlobalAccelHotKeyCenter() {
    for (Registration& registration : m_registrations) {
        unbind(registration);
    }
}

QString KGlobalAccelHotKeyCenter::commandKeyHint() const {
    return freedesktop::commandKeyHint();
}

std::optional<HotKeyRef> KGlobalAccelHotKeyCenter::registerHotKey(PhysicalKey key, HotKeyModifiers modifiers,
                                                                  HotKeyId id) {
    Registration registration{.key = key, .modifiers = modifiers, .id = id.id, .combinations = {}, .granted = {}};
    if (m_isWanted(key) && !bind(registration)) {
        return std::nullopt;
    }
    m_registrations.push_back(registration);
    return HotKeyRef{.id = id.id};
}

bool KGlobalAccelHotKeyCenter::bind(Registration& registration) {
    call(QStringLiteral("doRegister"), {identityOf(registration.key)});
    const QList<int> saved = present(registration.key);
    const QList<int> savedDefault = sequences(QStringLiteral("defaultShortcutKeys"), registration.key);
    const bool isUsersChoice = !savedDefault.isEmpty() && saved != savedDefault;
    registration.combinations = plasmaCombinations(m_keyboard.keymap(), registration.key, registration.modifiers);
    if (isUsersChoice) {
        setShortcut(registration.key, saved, Present);
        registration.granted.reset();
        registration.isBound = true;
    } else {
        setShortcut(registration.key, registration.combinations, Default | NoAutoloading);
        registration.granted = setShortcut(registration.key, registration.combinations, Present | NoAutoloading);
        registration.isBound = !registration.granted->isEmpty();
    }
    if (registration.isBound) {
        listen();
        return true;
    }
    call(QStringLiteral("unregister"), {component(), QString(actionOf(registration.key).name)});
    std::fprintf(stderr, "zamber: the hot key %s%s%c is held by another program\n",
                 registration.modifiers.command ? "Super+" : "", registration.modifiers.shift ? "Shift+" : "",
                 freedesktop::positionOf(registration.key).label);
    return false;
}

void KGlobalAccelHotKeyCenter::unbind(Registration& registration) {
    if (!std::exchange(registration.isBound, false)) {
        return;
    }
    if (registration.granted == present(registration.key)) {
        call(QStringLiteral("unregister"), {component(), QString(actionOf(registration.key).name)});
    } else { // the user has chosen another one
        call(QStringLiteral("setInactive"), {identityOf(registration.key)});
    }
}

void KGlobalAccelHotKeyCenter::update() {
    for (Registration& registration : m_registrations) {
        const bool isWanted = m_isWanted(registration.key);
        if (isWanted && !registration.isBound) {
            bind(registration);
        } else if (!isWanted) {
            unbind(registration);
        }
    }
}

void KGlobalAccelHotKeyCenter::bindAgain() {
    for (Registration& registration : m_registrations) {
        const QList<int> combinations =
            plasmaCombinations(m_keyboard.keymap(), registration.key, registration.modifiers);
        if (registration.isBound && combinations != registration.combinations) {
            unbind(registration);
        }
    }
    update();
}

void KGlobalAccelHotKeyCenter::listen() {
    if (m_isListening) {
        return;
    }
    const QString path = call(QStringLiteral("getComponent"), {component()}).value<QDBusObjectPath>().path();
    const QString interface = QStringLiteral("org.kde.kglobalaccel.Component");
    const QDBusConnection bus = QDBusConnection::sessionBus();
    m_isListening = subscribe(bus, {service(), path, interface, QStringLiteral("globalShortcutPressed")}, this,
                              SLOT(handlePress(QString, QString, qlonglong)));
    subscribe(bus, {service(), path, interface, QStringLiteral("globalShortcutReleased")}, this,
              SLOT(handleRelease(QString, QString, qlonglong)));
}

void KGlobalAccelHotKeyCenter::handlePress(const QString& /*component*/, const QString& action, qlonglong /*time*/) {
    const bool isRepeat = action == m_heldAction;
    m_heldAction = action;
    m_letGo.start(LONGEST_REPEAT); // should the release not be told
    const auto pressed = std::ranges::find_if(m_registrations, [&action](const Registration& registration) {
        return actionOf(registration.key).name == action;
    });
    if (isRepeat || pressed == m_registrations.end() || !m_handler) {
        return;
    }
    m_closeMenus();
    m_handler(pressed->id);
}

void KGlobalAccelHotKeyCenter::handleRelease(const QString& /*component*/, const QString& action, qlonglong /*time*/) {
    if (action == m_heldAction) {
        m_heldAction.clear();
        m_letGo.start(LETTING_GO);
    }
}

} // namespace zamber::wayland
