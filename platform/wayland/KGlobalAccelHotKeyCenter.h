// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/HotKeyCenter.h"
#include "platform/wayland/HeldKeys.h"

#include <QList>
#include <QString>
#include <QTimer>

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

namespace zamber::wayland {

class SeatKeyboard;

/// Hot keys of Plasma's (org.kde.kglobalaccel), which fire whatever is in front. They are bound to characters, so that
/// a physical key is registered by what it gives in each of the user's layouts, and anew when these change.
///
/// A shortcut that the user has given an action of ours in Plasma's settings is kept instead, also after the end; all
/// others are given back with this object. Calls wait for the service, which is the compositor's, for a second at most.
class KGlobalAccelHotKeyCenter final : public HeldKeys, public HotKeyCenter {
    Q_OBJECT

public:
    using IsWanted = std::function<bool(PhysicalKey)>;
    using CloseMenus = std::function<void()>;

    /// Whether the service is on the session bus.
    static bool isOffered();

    /// A key is registered only as long as `isWanted` says so. `closeMenus` is called at each press.
    KGlobalAccelHotKeyCenter(SeatKeyboard& keyboard, IsWanted isWanted, CloseMenus closeMenus);
    ~KGlobalAccelHotKeyCenter() override;

    QString commandKeyHint() const override;
    std::optional<HotKeyRef> registerHotKey(PhysicalKey key, HotKeyModifiers modifiers, HotKeyId id) override;
    void setPressedHandler(PressedHandler handler) override { m_handler = std::move(handler); }

    /// A hot key counts as held for a moment after it has come up, in which the user may press the next one or let go
    /// of the modifiers, of which the service does not tell.
    bool isAnyHeld() const override { return m_letGo.isActive(); }

    /// To be called when an answer of `isWanted` may have changed.
    void update();

private:
    struct Registration {
        PhysicalKey key = PhysicalKey::V;
        HotKeyModifiers modifiers;
        std::uint32_t id = 0;
        bool isBound = false;
        QList<int> combinations;           // asked for
        std::optional<QList<int>> granted; // nothing where the user has chosen another one
    };

    bool bind(Registration& registration);
    void unbind(Registration& registration);
    void bindAgain();
    void listen();
    Q_SLOT void handlePress(const QString& component, const QString& action, qlonglong time);
    Q_SLOT void handleRelease(const QString& component, const QString& action, qlonglong time);

    SeatKeyboard& m_keyboard;
    IsWanted m_isWanted;
    CloseMenus m_closeMenus;
    std::vector<Registration> m_registrations;
    PressedHandler m_handler;
    bool m_isListening = false;
    QString m_heldAction; // its key is still down, and repeats
    QTimer m_letGo;       // until which a hot key counts as held
};

} // namespace zamber::wayland
