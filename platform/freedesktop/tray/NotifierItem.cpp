// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/tray/NotifierItem.h"

#include <QDBusMetaType>
#include <QtEndian>

#include <utility>

namespace zamber::freedesktop::tray {

namespace {

NotifierPixmap pixmapOf(const QImage& icon) {
    const QImage image = icon.convertToFormat(QImage::Format_ARGB32);
    NotifierPixmap pixmap{.width = image.width(), .height = image.height(), .bytes = {}};
    pixmap.bytes.resize(qsizetype{4} * image.width() * image.height());
    char* out = pixmap.bytes.data();
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x, out += 4) {
            qToBigEndian<quint32>(image.pixel(x, y), out);
        }
    }
    return pixmap;
}

} // namespace

QDBusArgument& operator<<(QDBusArgument& argument, const NotifierPixmap& pixmap) {
    argument.beginStructure();
    argument << pixmap.width << pixmap.height << pixmap.bytes;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, NotifierPixmap& pixmap) {
    argument.beginStructure();
    argument >> pixmap.width >> pixmap.height >> pixmap.bytes;
    argument.endStructure();
    return argument; // NOLINT(bugprone-return-const-ref-from-parameter): the shape is Qt's
}

QDBusArgument& operator<<(QDBusArgument& argument, const NotifierToolTip& toolTip) {
    argument.beginStructure();
    argument << toolTip.icon << toolTip.pixmaps << toolTip.title << toolTip.text;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, NotifierToolTip& toolTip) {
    argument.beginStructure();
    argument >> toolTip.icon >> toolTip.pixmaps >> toolTip.title >> toolTip.text;
    argument.endStructure();
    return argument; // NOLINT(bugprone-return-const-ref-from-parameter): the shape is Qt's
}

NotifierItem::NotifierItem(QObject* object, Callbacks callbacks, const QString& menuPath, const QString& title,
                           const QList<QImage>& icons)
    : QDBusAbstractAdaptor(object)
    , m_callbacks(std::move(callbacks))
    , m_menuPath(menuPath)
    , m_title(title) {
    qDBusRegisterMetaType<NotifierPixmap>();
    qDBusRegisterMetaType<NotifierPixmaps>();
    qDBusRegisterMetaType<NotifierToolTip>();
    for (const QImage& icon : icons) {
        m_pixmaps << pixmapOf(icon);
    }
}

void NotifierItem::Activate(int /*x*/, int /*y*/) {
    m_callbacks.activated();
}

void NotifierItem::SecondaryActivate(int /*x*/, int /*y*/) {}

void NotifierItem::ContextMenu(int /*x*/, int /*y*/) {
    m_callbacks.menuRequested();
}

void NotifierItem::Scroll(int /*delta*/, const QString& /*orientation*/) {}

void NotifierItem::ProvideXdgActivationToken(const QString& token) {
    m_callbacks.tokenProvided(token);
}

} // namespace zamber::freedesktop::tray
