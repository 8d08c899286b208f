// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Appearance.h"

#include <QDBusConnection>
#include <QObject>

#include <optional>
#include <vector>

class QDBusVariant;

namespace zamber::freedesktop::session {

/// What the settings portal says; until it has answered, and where there is none, the desktop's colours decide.
/// Never waits for the portal: its answers come as changes.
class PortalAppearance final : public QObject, public Appearance {
    Q_OBJECT

public:
    /// Comes after the application object.
    explicit PortalAppearance(const QDBusConnection& bus = QDBusConnection::sessionBus());

    bool isDark() const override;
    QColor accentColor() const override;
    bool reducedMotion() const override;
    void addChangedHandler(std::function<void()> handler) override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private slots:
    void settingChanged(const QString& group, const QString& key, const QDBusVariant& value);

private:
    void ask(const QString& group, const QString& key);
    void tellOfChange() const;
    void take(const QString& group, const QString& key, const QVariant& wrapped);

    QDBusConnection m_bus;
    std::optional<bool> m_portalIsDark;
    std::optional<QColor> m_portalAccent;
    std::optional<bool> m_portalReducesMotion;
    std::optional<bool> m_desktopAnimates;
    std::vector<std::function<void()>> m_changed;
};

} // namespace zamber::freedesktop::session
