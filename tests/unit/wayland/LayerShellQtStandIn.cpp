// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
//
// Stands for the library that puts windows on layers: what it is told of a window is in an object of this name among
// the window's children.
#include <QWindow>

namespace LayerShellQt {

class Window {
public:
    static QObject* get(QWindow* window);
};

QObject* Window::get(QWindow* window) {
    const QString name = QStringLiteral("layer");
    if (auto* const known = window->findChild<QObject*>(name)) {
        return known;
    }
    auto* const layer = new QObject(window);
    layer->setObjectName(name);
    return layer;
}

} // namespace LayerShellQt
