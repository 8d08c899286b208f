// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/freedesktop/portal/PortalSession.h"

#include <deque>
#include <memory>
#include <vector>

namespace zamber::freedesktop::portal {

class PortalRecord;

/// Types keys by the portal for remote control, into whatever window is in front, with the user's consent. The consent
/// is asked for once, by a dialog of the desktop's, and remembered by a token; a session is open only while keys are
/// typed, since the desktop shows it to the user.
class PortalKeyboard final : public QObject {
    Q_OBJECT

public:
    enum class Consent {
        Unknown,    ///< the portal has not answered yet
        NotOffered, ///< there is no such portal, or one that would ask at every paste
        Missing,
        Given,
    };

    /// Both outlive the keyboard.
    PortalKeyboard(Portals& portals, PortalRecord& record);
    ~PortalKeyboard() override;

    Consent consent() const;

    /// Shows the desktop's dialog. To be called when the user has asked for it.
    void askForConsent();

    /// Opens a session, without a dialog, where the consent has been given. `changed` tells when keys can be typed.
    void open();
    bool isOpen() const { return m_step == Step::Open; }

    /// Presses the keys one after the other, releases them in the opposite order, and closes the session. The keys are
    /// evdev's key codes.
    void type(const std::vector<int>& keys);

    /// Closes the session unless keys are just being typed, after which it closes by itself.
    void close();

Q_SIGNALS:
    /// `consent` or `isOpen` may have another answer.
    void changed();

private:
    struct Stroke {
        int key = 0;
        bool isDown = false;
    };
    enum class Step { Closed, Asking, Opening, Open, Typing };

    void askWhatIsOffered();
    void begin(Step step);
    void selectDevices();
    void start();
    void handleStarted(PortalRequest::Outcome outcome, const QVariantMap& results);
    void end();
    void typeNext();
    void finishTyping();

    Portals& m_portals;
    PortalRecord& m_record;
    bool m_isAnswered = false;
    bool m_isOffered = false;
    bool m_isForSession = false; // the consent holds for the session that is open and no longer
    bool m_isWantedAgain = false;
    int m_unansweredStarts = 0;
    int m_opening = 0;            // counts them, to know late answers by
    std::deque<Stroke> m_strokes; // still to be typed
    Step m_step = Step::Closed;
    std::unique_ptr<PortalSession> m_session;
    std::unique_ptr<PortalRequest> m_request;
};

} // namespace zamber::freedesktop::portal
