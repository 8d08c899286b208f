// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/HotKeyCenter.h"

#include <QObject>

#include <functional>
#include <vector>

namespace zamber::wayland {

class SwayConnection;

/// Hot keys as bindings of sway's whose command does nothing; sway reports when their keys are pressed. Bindings by key
/// code work in every layout and whatever window is in front. They are made again when sway has read its configuration
/// anew, and removed at the end.
///
/// sway lets a new binding replace the user's own without a warning, so that combinations which the configuration binds
/// are left alone.
class SwayHotKeyCenter final : public QObject, public HotKeyCenter {
    Q_OBJECT

public:
    /// Whether the hot key has an effect at present. One that has none is left to other uses.
    using IsWanted = std::function<bool(PhysicalKey key)>;
    using CloseMenus = std::function<void()>;

    SwayHotKeyCenter(SwayConnection& sway, IsWanted isWanted, CloseMenus closeMenus);
    ~SwayHotKeyCenter() override;

    QString commandKeyHint() const override;
    std::optional<HotKeyRef> registerHotKey(PhysicalKey key, HotKeyModifiers modifiers, HotKeyId id) override;
    void setPressedHandler(PressedHandler handler) override { m_handler = std::move(handler); }

    /// To be called when an answer of `isWanted` may have changed.
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
