// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusAbstractAdaptor>
#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QImage>
#include <QObject>

#include <functional>

namespace zamber::freedesktop::tray {

/// A picture as the bus carries it: 32 bits a pixel, alpha first, in network byte order.
struct NotifierPixmap {
    int width = 0;
    int height = 0;
    QByteArray bytes;
};

using NotifierPixmaps = QList<NotifierPixmap>;

struct NotifierToolTip {
    QString icon;
    NotifierPixmaps pixmaps;
    QString title;
    QString text;
};

QDBusArgument& operator<<(QDBusArgument& argument, const NotifierPixmap& pixmap);
const QDBusArgument& operator>>(const QDBusArgument& argument, NotifierPixmap& pixmap);
QDBusArgument& operator<<(QDBusArgument& argument, const NotifierToolTip& toolTip);
const QDBusArgument& operator>>(const QDBusArgument& argument, NotifierToolTip& toolTip);

/// The program's item as hosts ask for it (`org.kde.StatusNotifierItem`).
class NotifierItem final : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierItem")
    Q_PROPERTY(QString Category READ category CONSTANT)
    Q_PROPERTY(QString Id READ id CONSTANT)
    Q_PROPERTY(QString Title READ title CONSTANT)
    Q_PROPERTY(QString Status READ status CONSTANT)
    Q_PROPERTY(int WindowId READ windowId CONSTANT)
    Q_PROPERTY(QString IconName READ none CONSTANT)
    Q_PROPERTY(zamber::freedesktop::tray::NotifierPixmaps IconPixmap READ iconPixmap CONSTANT)
    Q_PROPERTY(QString OverlayIconName READ none CONSTANT)
    Q_PROPERTY(QString AttentionIconName READ none CONSTANT)
    Q_PROPERTY(zamber::freedesktop::tray::NotifierToolTip ToolTip READ toolTip CONSTANT)
    Q_PROPERTY(bool ItemIsMenu READ itemIsMenu CONSTANT)
    Q_PROPERTY(QDBusObjectPath Menu READ menu CONSTANT)

public:
    /// Called when a host reports the user's act. They are no signals, which an adaptor would send to the bus.
    struct Callbacks {
        std::function<void()> activated;
        std::function<void()> menuRequested;                     ///< by a host that draws no menus
        std::function<void(const QString& token)> tokenProvided; ///< lets the next window come to the front (Wayland)
    };

    NotifierItem(QObject* object, Callbacks callbacks, const QString& menuPath, const QString& title,
                 const QList<QImage>& icons);

    static QString category() { return QStringLiteral("ApplicationStatus"); }
    static QString id() { return QStringLiteral("Zamber"); }
    QString title() const { return m_title; }
    static QString status() { return QStringLiteral("Active"); }
    static int windowId() { return 0; }
    static QString none() { return {}; }
    NotifierPixmaps iconPixmap() const { return m_pixmaps; }
    NotifierToolTip toolTip() const { return {.icon = {}, .pixmaps = {}, .title = m_title, .text = {}}; }
    static bool itemIsMenu() { return false; }
    QDBusObjectPath menu() const { return m_menuPath; }

public slots:
    // NOLINTBEGIN(readability-identifier-naming): the names are the interface's
    void Activate(int x, int y);
    void SecondaryActivate(int x, int y);
    void ContextMenu(int x, int y);
    void Scroll(int delta, const QString& orientation);
    void ProvideXdgActivationToken(const QString& token);
    // NOLINTEND(readability-identifier-naming)

private:
    Callbacks m_callbacks;
    QDBusObjectPath m_menuPath;
    QString m_title;
    NotifierPixmaps m_pixmaps;
};

} // namespace zamber::freedesktop::tray

Q_DECLARE_METATYPE(zamber::freedesktop::tray::NotifierPixmap)
Q_DECLARE_METATYPE(zamber::freedesktop::tray::NotifierToolTip)
