// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/HotKeyCenter.h"

#include <QObject>

#include <functional>
#include <vector>

namespace zamber::wayland {

class SwayConnection;

/// Hot keys as bindings of sway's that run nothing, of whose presses sway tells: by key code, in every layout, whatever
/// is in front. They are made again when the configuration is read anew, and given back at the end.
///
/// sway lets a new binding replace the user's own without a word, so that what the configuration binds is left alone.
class SwayHotKeyCenter final : public QObject, public HotKeyCenter {
    Q_OBJECT

public:
    /// Whether that key does anything at present. One that does nothing is not taken from other uses.
    using IsWanted = std::function<bool(PhysicalKey key)>;
    using CloseMenus = std::function<void()>;

    SwayHotKeyCenter(SwayConnection& sway, IsWanted isWanted, CloseMenus closeMenus);
    ~SwayHotKeyCenter() override;

    QString commandKeyHint() const override;
    std::optional<HotKeyRef> registerHotKey(PhysicalKey key, HotKeyModifiers modifiers, HotKeyId id) override;
    void setPressedHandler(PressedHandler handler) override { m_handler = std::move(handler); }

    /// What `isWanted` tells may have changed.
    void update();

private:
    struct Registration {
        PhysicalKey key = PhysicalKey::V;
        HotKeyModifiers modifiers;
        std::uint32_t id = 0;
        bool isBound = false;
    };

    bool bind(Registration& registration);
    void unbind(Registration& registration);
    void bindAgain();
    void handlePress(const QByteArray& command);

    SwayConnection& m_sway;
    IsWanted m_isWanted;
    CloseMenus m_closeMenus;
    QByteArray m_configuration;
    std::vector<Registration> m_registrations;
    PressedHandler m_handler;
};

} // namespace zamber::wayland
