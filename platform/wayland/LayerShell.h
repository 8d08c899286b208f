// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QMargins>
#include <QtCore/qnamespace.h>

#include <memory>

class QObject;
class QWindow;

namespace zamber::wayland {

/// Where a window lies above the windows of all programs, also of one in full screen.
struct Layer {
    /// The edges that the window keeps its distances from. With all four it is as large as they leave it.
    Qt::Edges edges;
    QMargins distances; ///< points

    bool takesKeyboard = false; ///< from everybody, for as long as it is shown
    bool heedsPanels = false;   ///< the edges are those of what panels leave free, else the screen's

    /// The compositor chooses the screen: the one that the user works on. Else it is the window's own.
    bool isOnCurrentScreen = false;
};

/// Has the compositor place windows on layers (zwlr_layer_shell_v1) by LayerShellQt, which is looked for at run time:
/// it is not on every system that this program runs on.
class LayerShell final {
public:
    /// Null where the library is not there.
    static std::unique_ptr<LayerShell> load();

    /// The window is on this layer when it is shown next, and moves there if it is shown. It must not have been shown
    /// before the first call.
    void put(QWindow& window, const Layer& layer) const;

private:
    using LayerOf = QObject* (*)(QWindow* window);

    explicit LayerShell(LayerOf layerOf);

    LayerOf m_layerOf;
};

} // namespace zamber::wayland
