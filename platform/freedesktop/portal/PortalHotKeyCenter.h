// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/HotKeyCenter.h"
#include "platform/freedesktop/portal/PortalSession.h"

#include <QElapsedTimer>
#include <QStringList>

#include <memory>
#include <optional>
#include <vector>

namespace zamber::freedesktop::portal {

class PortalRecord;

/// Hot keys by the portal for global shortcuts, which work whatever window is in front. The desktop asks the user once;
/// a refusal is remembered. What the portal has not bound is left to the hot keys of X, which fire while a program of X
/// is in front.
class PortalHotKeyCenter final : public QObject, public HotKeyCenter {
    Q_OBJECT

public:
    /// Whether the hot key has an effect at present. One that has none is left to other uses.
    using IsWanted = std::function<bool(PhysicalKey key)>;
    using CloseMenus = std::function<void()>;

    /// All of them outlive the center.
    struct Surroundings {
        Portals& portals;
        PortalRecord& record;
        HotKeyCenter& hotKeysOfX;
        Scheduler& scheduler;
    };

    PortalHotKeyCenter(const Surroundings& surroundings, IsWanted isWanted, CloseMenus closeMenus);
    ~PortalHotKeyCenter() override;

    QString commandKeyHint() const override { return m_hotKeysOfX.commandKeyHint(); }

    /// Never nothing: whether the portal binds it is known only later.
    std::optional<HotKeyRef> registerHotKey(PhysicalKey key, HotKeyModifiers modifiers, HotKeyId id) override;
    void setPressedHandler(PressedHandler handler) override;

    /// To be called when an answer of `isWanted` may have changed. What the user turns on is asked for again, even if
    /// it was refused once.
    void update();

    /// Whether the portal tells of that key's presses.
    bool isBound(PhysicalKey key) const;

    /// Whether the portal has still to answer, or the user to close its dialog. `settled` tells of the end.
    bool isAsking() const { return m_isAsking; }

    /// Whether the keys of a hot key are held down, as far as the portal tells: its modifiers come up unseen.
    bool areKeysHeld() const { return m_held || m_handsOff.isActive(); }

Q_SIGNALS:
    /// The key of a hot key has gone down, before the handler is told, or has come up.
    void activated(zamber::PhysicalKey key);
    void deactivated(zamber::PhysicalKey key);

    void keysReleased();
    void settled();

private Q_SLOTS:
    void handleActivated(const QDBusMessage& message);
    void handleDeactivated(const QDBusMessage& message);
    void handleChanged(const QDBusMessage& message);

private:
    struct Registration {
        PhysicalKey key = PhysicalKey::V;
        HotKeyModifiers modifiers;
        std::uint32_t id = 0;
        bool isBound = false;
    };

    void bind();
    void unbind();
    void handleFailure();
    void askForShortcuts();
    void listShortcuts(bool isRefused);
    void take(const QVariant& shortcuts);
    void settle(bool isRefused);
    QStringList wanted() const;
    const Registration* registrationOf(const QDBusMessage& message) const;
    bool release();
    void tell(std::uint32_t id) const;

    Portals& m_portals;
    PortalRecord& m_record;
    HotKeyCenter& m_hotKeysOfX;
    IsWanted m_isWanted;
    CloseMenus m_closeMenus;
    std::vector<Registration> m_registrations;
    PressedHandler m_handler;
    QStringList m_wanted;   // at the last update
    QStringList m_askedFor; // in the session that there is
    bool m_isAsking = false;
    QElapsedTimer m_sinceAsked;
    std::optional<PhysicalKey> m_held;
    int m_failures = 0;
    SingleShotTimer m_bindAgain;
    SingleShotTimer m_handsOff;
    std::unique_ptr<PortalSession> m_session;
    std::unique_ptr<PortalRequest> m_request;
};

} // namespace zamber::freedesktop::portal
