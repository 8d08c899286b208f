// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/portal/PortalKeyboard.h"

#include "platform/freedesktop/portal/PortalRecord.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>

#include <ranges>
#include <utility>

namespace zamber::freedesktop::portal {

using namespace Qt::StringLiterals;

namespace {

const auto REMOTE_DESKTOP = u"org.freedesktop.portal.RemoteDesktop"_s;

/// The first version that remembers a consent.
constexpr uint VERSION_WITH_TOKENS = 2;

constexpr uint KEYBOARD = 1;
constexpr uint UNTIL_REVOKED = 2;

/// After so many starts with a token that were given no answer, the portal is taken to show a dialog instead, which the
/// user did not ask for. The token is then given up.
constexpr int MOST_UNANSWERED_STARTS = 2;

} // namespace

PortalKeyboard::PortalKeyboard(Portals& portals, PortalRecord& record)
    : m_portals(portals)
    , m_record(record) {
    connect(&portals, &Portals::ended, this, [this] {
        if (m_session) {
            m_session->forget();
        }
        m_isForSession = false;
        end();
    });
    connect(&portals, &Portals::returned, this, &PortalKeyboard::askWhatIsOffered);
    askWhatIsOffered();
}

PortalKeyboard::~PortalKeyboard() = default;

void PortalKeyboard::askWhatIsOffered() {
    if (m_isOffered) {
        return;
    }
    m_portals.readProperty(REMOTE_DESKTOP, u"version"_s, this, [this](const QVariant& version) {
        if (version.toUInt() < VERSION_WITH_TOKENS) {
            m_isAnswered = true;
            Q_EMIT changed();
            return;
        }
        m_portals.readProperty(REMOTE_DESKTOP, u"AvailableDeviceTypes"_s, this, [this](const QVariant& types) {
            m_isAnswered = true;
            m_isOffered = (types.toUInt() & KEYBOARD) != 0;
            Q_EMIT changed();
        });
    });
}

PortalKeyboard::Consent PortalKeyboard::consent() const {
    if (!m_isAnswered) {
        return Consent::Unknown;
    }
    if (!m_isOffered) {
        return Consent::NotOffered;
    }
    return m_isForSession || !m_record.restoreToken().isEmpty() ? Consent::Given : Consent::Missing;
}

void PortalKeyboard::askForConsent() {
    if (consent() == Consent::Missing) {
        end(); // a dialog that the user may have lost sight of
        begin(Step::Asking);
    }
}

void PortalKeyboard::open() {
    m_isWantedAgain = m_step == Step::Typing;
    if (m_step == Step::Closed && consent() == Consent::Given) {
        begin(Step::Opening);
    }
}

void PortalKeyboard::begin(Step step) {
    m_step = step;
    ++m_opening;
    m_session = std::make_unique<PortalSession>(m_portals, REMOTE_DESKTOP, [this](bool isBegun) {
        if (isBegun) {
            selectDevices();
        } else {
            end();
        }
    });
    connect(m_session.get(), &PortalSession::closed, this, [this] {
        m_session.release()->deleteLater(); // whose signal this is
        m_isForSession = false;
        end();
    });
}

void PortalKeyboard::selectDevices() {
    QVariantMap options{{u"types"_s, KEYBOARD}, {u"persist_mode"_s, UNTIL_REVOKED}};
    if (m_step == Step::Opening) {
        options.insert(u"restore_token"_s, m_record.restoreToken());
    }
    m_request =
        std::make_unique<PortalRequest>(m_portals,
                                        PortalRequest::Call{.interface = REMOTE_DESKTOP,
                                                            .method = u"SelectDevices"_s,
                                                            .arguments = {QVariant::fromValue(m_session->path())},
                                                            .options = options},
                                        [this](PortalRequest::Outcome outcome, const QVariantMap& /*results*/) {
                                            if (outcome == PortalRequest::Outcome::Granted) {
                                                start();
                                            } else {
                                                end();
                                            }
                                        });
}

void PortalKeyboard::start() {
    m_unansweredStarts += m_step == Step::Opening ? 1 : 0;
    m_request = std::make_unique<PortalRequest>(
        m_portals,
        PortalRequest::Call{.interface = REMOTE_DESKTOP,
                            .method = u"Start"_s,
                            .arguments = {QVariant::fromValue(m_session->path()), QString()},
                            .options = {}},
        [this](PortalRequest::Outcome outcome, const QVariantMap& results) { handleStarted(outcome, results); });
}

void PortalKeyboard::handleStarted(PortalRequest::Outcome outcome, const QVariantMap& results) {
    m_unansweredStarts = 0;
    const bool isGranted =
        outcome == PortalRequest::Outcome::Granted && (results.value(u"devices"_s).toUInt() & KEYBOARD) != 0;
    const QString token = isGranted ? results.value(u"restore_token"_s).toString() : QString();
    m_record.setRestoreToken(token); // one that was used may not be used again
    if (!isGranted) {
        end();
        return;
    }
    m_isForSession = token.isEmpty();
    if (m_step == Step::Asking && !m_isForSession) {
        end();
        return;
    }
    m_step = Step::Open;
    Q_EMIT changed();
}

void PortalKeyboard::type(const std::vector<int>& keys) {
    if (m_step != Step::Open) {
        return;
    }
    m_step = Step::Typing;
    m_strokes.clear();
    for (const int key : keys) {
        m_strokes.push_back({.key = key, .isDown = true});
    }
    for (const int key : keys | std::views::reverse) {
        m_strokes.push_back({.key = key, .isDown = false});
    }
    typeNext();
}

void PortalKeyboard::typeNext() {
    if (m_strokes.empty()) {
        finishTyping();
        return;
    }
    const Stroke stroke = m_strokes.front();
    m_strokes.pop_front();
    QDBusMessage call =
        QDBusMessage::createMethodCall(Portals::SERVICE, Portals::PATH, REMOTE_DESKTOP, u"NotifyKeyboardKeycode"_s);
    call << QVariant::fromValue(m_session->path()) << QVariantMap() << stroke.key << (stroke.isDown ? 1U : 0U);
    // One after the other, and the session's end last: xdg-desktop-portal handles calls side by side, and of two keys
    // the second would arrive first now and then.
    auto* const answer = new QDBusPendingCallWatcher(m_portals.bus().asyncCall(call), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this,
            [this, opening = m_opening](QDBusPendingCallWatcher* finished) {
                finished->deleteLater();
                if (opening == m_opening && m_step == Step::Typing) {
                    typeNext();
                }
            });
}

void PortalKeyboard::finishTyping() {
    if (!m_isWantedAgain && !m_isForSession) {
        end();
        return;
    }
    m_step = Step::Open;
    Q_EMIT changed();
}

void PortalKeyboard::close() {
    m_isWantedAgain = false;
    if (m_step == Step::Opening && m_unansweredStarts >= MOST_UNANSWERED_STARTS) {
        m_unansweredStarts = 0;
        m_record.setRestoreToken({});
    }
    if (m_step == Step::Opening || (m_step == Step::Open && !m_isForSession)) {
        end();
    }
}

void PortalKeyboard::end() {
    m_request.reset();
    m_session.reset();
    m_step = Step::Closed;
    Q_EMIT changed();
}

} // namespace zamber::freedesktop::portal
