// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/portal/PortalHotKeyCenter.h"

#include "platform/freedesktop/portal/PortalRecord.h"
#include "platform/freedesktop/portal/PortalShortcut.h"
#include "platform/freedesktop/session/BusSignals.h"

#include <QDBusMessage>
#include <QDBusMetaType>

#include <algorithm>
#include <utility>

namespace zamber::freedesktop::portal {

using namespace Qt::StringLiterals;

namespace {

const auto GLOBAL_SHORTCUTS = u"org.freedesktop.portal.GlobalShortcuts"_s;

/// While a desktop is still coming up, its portals may be there before they work.
constexpr std::chrono::milliseconds BIND_AGAIN_DELAY{5000};
constexpr int MOST_FAILURES = 4;

/// No user closes a dialog sooner. GNOME's portal says the same of a dialog that was cancelled as of one that could not
/// be shown.
constexpr std::chrono::milliseconds SHORTEST_LOOK_AT_A_DIALOG{1000};

/// Time for the modifiers of a hot key to come up after its key, which is all that the portal tells of.
constexpr std::chrono::milliseconds HANDS_OFF_TIME{250};

} // namespace

PortalHotKeyCenter::PortalHotKeyCenter(const Surroundings& surroundings, IsWanted isWanted, CloseMenus closeMenus)
    : m_portals(surroundings.portals)
    , m_record(surroundings.record)
    , m_hotKeysOfX(surroundings.hotKeysOfX)
    , m_isWanted(std::move(isWanted))
    , m_closeMenus(std::move(closeMenus))
    , m_bindAgain(surroundings.scheduler, BIND_AGAIN_DELAY, [this] { bind(); })
    , m_handsOff(surroundings.scheduler, HANDS_OFF_TIME, [this] { Q_EMIT keysReleased(); }) {
    qDBusRegisterMetaType<PortalShortcut>();
    qDBusRegisterMetaType<QList<PortalShortcut>>();
    const auto follow = [this](const QString& name, const char* slot) {
        session::subscribe(
            m_portals.bus(),
            {.service = Portals::SERVICE, .path = Portals::PATH, .interface = GLOBAL_SHORTCUTS, .name = name}, this,
            slot);
    };
    follow(u"Activated"_s, SLOT(handleActivated(QDBusMessage)));
    follow(u"Deactivated"_s, SLOT(handleDeactivated(QDBusMessage)));
    follow(u"ShortcutsChanged"_s, SLOT(handleChanged(QDBusMessage)));
    connect(&m_portals, &Portals::ended, this, [this] {
        if (m_session) {
            m_session->forget();
        }
        unbind();
        Q_EMIT settled();
    });
    connect(&m_portals, &Portals::returned, this, &PortalHotKeyCenter::bind);
    m_hotKeysOfX.setPressedHandler([this](std::uint32_t id) {
        const auto found = std::ranges::find(m_registrations, id, &Registration::id);
        if (found != m_registrations.end() && !found->isBound) {
            tell(id);
        }
    });
}

PortalHotKeyCenter::~PortalHotKeyCenter() {
    m_hotKeysOfX.setPressedHandler(nullptr);
}

std::optional<HotKeyRef> PortalHotKeyCenter::registerHotKey(PhysicalKey key, HotKeyModifiers modifiers, HotKeyId id) {
    m_hotKeysOfX.registerHotKey(key, modifiers, id);
    if (m_registrations.empty()) {
        // When all are registered, so that the user is asked once.
        QMetaObject::invokeMethod(
            this,
            [this] {
                m_wanted = wanted();
                bind();
            },
            Qt::QueuedConnection);
    }
    m_registrations.push_back({.key = key, .modifiers = modifiers, .id = id.id});
    return HotKeyRef{.id = id.id};
}

void PortalHotKeyCenter::setPressedHandler(PressedHandler handler) {
    m_handler = std::move(handler);
}

bool PortalHotKeyCenter::isBound(PhysicalKey key) const {
    const auto found = std::ranges::find(m_registrations, key, &Registration::key);
    return found != m_registrations.end() && found->isBound;
}

QStringList PortalHotKeyCenter::wanted() const {
    QStringList names;
    for (const Registration& registration : m_registrations) {
        if (m_isWanted(registration.key)) {
            names << shortcutNameOf(registration.key);
        }
    }
    return names;
}

void PortalHotKeyCenter::update() {
    const QStringList before = std::exchange(m_wanted, wanted());
    if (m_wanted != before) {
        m_record.forgetRefusal(without(m_wanted, before));
        bind();
    }
}

void PortalHotKeyCenter::bind() {
    unbind();
    m_bindAgain.stop();
    m_askedFor = without(m_wanted, m_record.refusedShortcuts());
    m_isAsking = !m_askedFor.isEmpty();
    if (!m_isAsking) {
        Q_EMIT settled();
        return;
    }
    // A session's shortcuts are bound once, so that others take another session.
    m_session = std::make_unique<PortalSession>(m_portals, GLOBAL_SHORTCUTS, [this](bool isBegun) {
        if (isBegun) {
            askForShortcuts();
        } else {
            handleFailure();
        }
    });
    connect(m_session.get(), &PortalSession::closed, this, [this] {
        m_session.release()->deleteLater(); // whose signal this is
        unbind();
    });
}

void PortalHotKeyCenter::handleFailure() {
    unbind();
    if (++m_failures <= MOST_FAILURES) {
        m_bindAgain.start();
    }
    Q_EMIT settled();
}

void PortalHotKeyCenter::unbind() {
    m_isAsking = false;
    m_request.reset();
    m_session.reset();
    for (Registration& registration : m_registrations) {
        registration.isBound = false;
    }
    if (release()) {
        Q_EMIT keysReleased();
    }
}

bool PortalHotKeyCenter::release() {
    const std::optional<PhysicalKey> held = std::exchange(m_held, std::nullopt);
    if (held) {
        Q_EMIT deactivated(*held);
    }
    return held.has_value();
}

void PortalHotKeyCenter::askForShortcuts() {
    QList<PortalShortcut> shortcuts;
    for (const Registration& registration : m_registrations) {
        if (m_askedFor.contains(shortcutNameOf(registration.key))) {
            shortcuts << shortcutOf(registration.key, registration.modifiers);
        }
    }
    const auto done = [this](PortalRequest::Outcome outcome, const QVariantMap& results) {
        if (outcome == PortalRequest::Outcome::Granted) {
            take(results.value(u"shortcuts"_s));
            settle(false);
        } else {
            // GNOME's portal calls a binding that has succeeded a failure, so the list decides.
            listShortcuts(outcome == PortalRequest::Outcome::Refused ||
                          m_sinceAsked.hasExpired(SHORTEST_LOOK_AT_A_DIALOG.count()));
        }
    };
    m_sinceAsked.start();
    m_request =
        std::make_unique<PortalRequest>(m_portals,
                                        PortalRequest::Call{.interface = GLOBAL_SHORTCUTS,
                                                            .method = u"BindShortcuts"_s,
                                                            .arguments = {QVariant::fromValue(m_session->path()),
                                                                          QVariant::fromValue(shortcuts), QString()},
                                                            .options = {}},
                                        done);
}

void PortalHotKeyCenter::listShortcuts(bool isRefused) {
    m_request =
        std::make_unique<PortalRequest>(m_portals,
                                        PortalRequest::Call{.interface = GLOBAL_SHORTCUTS,
                                                            .method = u"ListShortcuts"_s,
                                                            .arguments = {QVariant::fromValue(m_session->path())},
                                                            .options = {}},
                                        [this, isRefused](PortalRequest::Outcome outcome, const QVariantMap& results) {
                                            take(results.value(u"shortcuts"_s));
                                            settle(isRefused && outcome == PortalRequest::Outcome::Granted);
                                        });
}

void PortalHotKeyCenter::take(const QVariant& shortcuts) {
    const auto list = qdbus_cast<QList<PortalShortcut>>(shortcuts);
    for (Registration& registration : m_registrations) {
        const QString name = shortcutNameOf(registration.key);
        const auto found = std::ranges::find(list, name, &PortalShortcut::name);
        // The user may have taken the keys away from it.
        registration.isBound = m_askedFor.contains(name) && found != list.end() &&
                               !found->properties.value(u"trigger_description"_s).toString().isEmpty();
    }
}

void PortalHotKeyCenter::settle(bool isRefused) {
    QStringList bound;
    for (const Registration& registration : m_registrations) {
        if (registration.isBound) {
            bound << shortcutNameOf(registration.key);
        }
    }
    if (!bound.isEmpty() || !isRefused) {
        m_record.accept(bound);
        m_isAsking = false;
        Q_EMIT settled();
        return;
    }
    // What is new was refused; what was accepted before goes on.
    const QStringList accepted = m_record.acceptedShortcuts();
    const QStringList isNew = without(m_askedFor, accepted);
    m_record.refuse(isNew.isEmpty() ? m_askedFor : isNew);
    bind();
}

const PortalHotKeyCenter::Registration* PortalHotKeyCenter::registrationOf(const QDBusMessage& message) const {
    if (!m_session || !message.signature().startsWith("os"_L1) ||
        message.arguments().at(0).value<QDBusObjectPath>() != m_session->path()) {
        return nullptr;
    }
    const QString name = message.arguments().at(1).toString();
    const auto found = std::ranges::find_if(m_registrations, [&name](const Registration& registration) {
        return shortcutNameOf(registration.key) == name;
    });
    return found != m_registrations.end() && m_askedFor.contains(name) ? &*found : nullptr;
}

void PortalHotKeyCenter::handleActivated(const QDBusMessage& message) {
    if (const Registration* const registration = registrationOf(message)) {
        release();
        m_held = registration->key;
        Q_EMIT activated(registration->key);
        m_closeMenus();
        tell(registration->id);
    }
}

void PortalHotKeyCenter::handleDeactivated(const QDBusMessage& message) {
    if (registrationOf(message) != nullptr && release()) {
        m_handsOff.start();
    }
}

void PortalHotKeyCenter::handleChanged(const QDBusMessage& message) {
    if (m_session && message.arguments().size() == 2 &&
        message.arguments().at(0).value<QDBusObjectPath>() == m_session->path()) {
        take(message.arguments().at(1));
    }
}

void PortalHotKeyCenter::tell(std::uint32_t id) const {
    if (m_handler) {
        m_handler(id);
    }
}

} // namespace zamber::freedesktop::portal
