// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Appearance.h"

#include <QDBusConnection>
#include <QObject>

#include <optional>
#include <vector>

class QDBusMessage;

namespace zamber::freedesktop::session {

/// What the settings portal says; until it has answered, and where it has no preference, the desktop's colours decide.
/// Never waits for the portal: its answers come as changes. Handlers are called only when one of the three answers is
/// another one than before, so that a handler may set palettes, for which Qt sends the very events of a new theme.
class PortalAppearance final : public QObject, public Appearance {
    Q_OBJECT

public:
    /// The application object exists before.
    explicit PortalAppearance(const QDBusConnection& bus = QDBusConnection::sessionBus());

    bool isDark() const override;
    QColor accentColor() const override;
    bool reducedMotion() const override;
    void addChangedHandler(std::function<void()> handler) override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private slots:
    void settingChanged(const QDBusMessage& message);

private:
    struct Answers {
        bool isDark = false;
        QColor accentColor;
        bool reducedMotion = false;
        bool operator==(const Answers&) const = default;
    };

    void ask(const QString& group, const QString& key);
    Answers answers() const;
    void tellIfChanged();
    void take(const QString& group, const QString& key, const QVariant& wrapped);

    QDBusConnection m_bus;
    std::optional<bool> m_portalIsDark;
    std::optional<QColor> m_portalAccent;
    std::optional<bool> m_portalReducesMotion;
    std::optional<bool> m_desktopAnimates;
    std::vector<std::function<void()>> m_changed;
    Answers m_told; // what the handlers know
};

} // namespace zamber::freedesktop::session
