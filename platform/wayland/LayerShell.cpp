// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/wayland/LayerShell.h"

#include <QLibrary>
#include <QObject>
#include <QVariant>
#include <QWindow>

namespace zamber::wayland {

using namespace Qt::StringLiterals;

namespace {

constexpr int LAYER_SHELL_QT_VERSION = 6;

// The values of the library's properties, which are those of the protocol.
constexpr int OVERLAY = 3;
constexpr int NO_KEYBOARD = 0;
constexpr int EXCLUSIVE_KEYBOARD = 1;
constexpr int SCREEN_OF_WINDOW = 0;
constexpr int SCREEN_OF_COMPOSITOR = 1;
constexpr int BESIDE_PANELS = 0;
constexpr int OVER_PANELS = -1;

int anchorsOf(Qt::Edges edges) {
    return (edges.testFlag(Qt::TopEdge) ? 1 : 0) | (edges.testFlag(Qt::BottomEdge) ? 2 : 0) |
           (edges.testFlag(Qt::LeftEdge) ? 4 : 0) | (edges.testFlag(Qt::RightEdge) ? 8 : 0);
}

} // namespace

std::unique_ptr<LayerShell> LayerShell::load() {
    // LayerShellQt::Window::get(QWindow*), by its name. All else are properties of the object that it gives.
    QLibrary library(u"LayerShellQtInterface"_s, LAYER_SHELL_QT_VERSION);
    const auto layerOf = reinterpret_cast<LayerOf>(library.resolve("_ZN12LayerShellQt6Window3getEP7QWindow"));
    return layerOf != nullptr ? std::unique_ptr<LayerShell>(new LayerShell(layerOf)) : nullptr;
}

LayerShell::LayerShell(LayerOf layerOf)
    : m_layerOf(layerOf) {}

void LayerShell::put(QWindow& window, const Layer& layer) const {
    QObject* const surface = m_layerOf(&window);
    if (surface == nullptr) {
        return;
    }
    surface->setProperty("scope", u"zamber"_s);
    surface->setProperty("layer", OVERLAY);
    surface->setProperty("anchors", anchorsOf(layer.edges));
    surface->setProperty("margins", QVariant::fromValue(layer.distances));
    surface->setProperty("exclusionZone", layer.heedsPanels ? BESIDE_PANELS : OVER_PANELS);
    surface->setProperty("keyboardInteractivity", layer.takesKeyboard ? EXCLUSIVE_KEYBOARD : NO_KEYBOARD);
    surface->setProperty("screenConfiguration", layer.isOnCurrentScreen ? SCREEN_OF_COMPOSITOR : SCREEN_OF_WINDOW);
    if (window.isVisible()) {
        window.requestUpdate(); // the compositor takes what has changed with the next frame
    }
}

} // namespace zamber::wayland
