// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT

// A Qt program that does nothing but sit in the tray: x11_cost.py measures the program against its cost.

#include <QApplication>
#include <QDBusConnection>
#include <QNetworkRequest>
#include <QSvgRenderer>
#include <QSystemTrayIcon>

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QDBusConnection::sessionBus();
    // So that the modules are loaded.
    const QSvgRenderer renderer;
    const QNetworkRequest request;
    QPixmap square(22, 22);
    square.fill(Qt::white);
    QSystemTrayIcon icon{QIcon(square)};
    icon.show();
    return QApplication::exec();
}
