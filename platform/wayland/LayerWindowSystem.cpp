// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/wayland/LayerWindowSystem.h"

#include "platform/wayland/FreeArea.h"
#include "platform/wayland/LayerShell.h"
#include "platform/wayland/OwnWindows.h"

#include <QApplication>
#include <QPainter>
#include <QRasterWindow>
#include <QScreen>

#include <utility>

namespace zamber::wayland {

namespace {

constexpr Qt::Edges ALL_EDGES = Qt::TopEdge | Qt::BottomEdge | Qt::LeftEdge | Qt::RightEdge;

bool isDialogOpen() {
    return QApplication::activeModalWidget() != nullptr;
}

} // namespace

/// An invisible window that covers a screen beneath the popover. A window that has the keyboard to itself does not lose
/// it to another one that is pressed, so that a press elsewhere would not be noticed.
class LayerWindowSystem::Catcher final : public QRasterWindow {
public:
    Catcher(QScreen* screen, std::function<void()> pressed)
        : m_pressed(std::move(pressed)) {
        QSurfaceFormat format = requestedFormat();
        format.setAlphaBufferSize(8);
        setFormat(format);
        setFlags(Qt::FramelessWindowHint);
        setScreen(screen);
        setGeometry(screen->geometry());
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        painter.fillRect(QRect(QPoint(), size()), Qt::transparent);
    }

    void mousePressEvent(QMouseEvent* /*event*/) override { m_pressed(); }

private:
    std::function<void()> m_pressed;
};

LayerWindowSystem::LayerWindowSystem(std::unique_ptr<LayerShell> shell, FreePart freePart)
    : m_shell(std::move(shell))
    , m_freePart(std::move(freePart)) {}

LayerWindowSystem::~LayerWindowSystem() = default;

std::optional<QRect> LayerWindowSystem::freeArea(const QScreen& screen) const {
    return m_freePart ? freeAreaOf(screen.geometry(), screen.virtualGeometry(), m_freePart()) : screen.geometry();
}

void LayerWindowSystem::place(WId id, const QRect& rectangle) {
    QWindow* const window = ownwindows::find(id);
    if (window == nullptr) {
        return;
    }
    // Nobody is to resize it, and compositors that tile let windows of a fixed size float.
    window->setMinimumSize(rectangle.size());
    window->setMaximumSize(rectangle.size());
    if (!m_shell) {
        if (!window->isVisible()) {
            ownwindows::moveToScreen(*window, rectangle);
        }
        return;
    }
    if (window->type() == Qt::Popup) {
        return;
    }
    if (m_popover != window) {
        m_popover = window;
        window->installEventFilter(this);
    }
    const QScreen* const screen = QGuiApplication::screenAt(rectangle.center());
    const QScreen& there = screen != nullptr ? *screen : currentScreen();
    Layer layer = layerAt(rectangle, freeArea(there).value_or(there.geometry()));
    layer.takesKeyboard = !isDialogOpen();
    m_shell->put(*window, layer);
}

void LayerWindowSystem::catchPresses() {
    if (!m_catchers.empty() || isDialogOpen()) {
        return;
    }
    for (QScreen* const screen : QGuiApplication::screens()) {
        auto& catcher = m_catchers.emplace_back(std::make_unique<Catcher>(screen, [this] { Q_EMIT closeRequested(); }));
        m_shell->put(*catcher, {.edges = ALL_EDGES, .distances = {}});
        catcher->show();
    }
}

void LayerWindowSystem::endCatching() {
    for (auto& catcher : std::exchange(m_catchers, {})) {
        catcher->hide();
        catcher.release()->deleteLater(); // it may be in the middle of its press
    }
}

void LayerWindowSystem::bringToFront(WId window) {
    ownwindows::bringToFront(window);
}

void LayerWindowSystem::useActivationToken(const QString& token) {
    ownwindows::useActivationToken(token);
}

bool LayerWindowSystem::eventFilter(QObject* /*watched*/, QEvent* event) {
    switch (event->type()) {
    case QEvent::Show:
        catchPresses(); // shown first, they are beneath it
        break;
    case QEvent::Hide:
        endCatching();
        break;
    case QEvent::WindowBlocked:   // by a dialog, which would get no key
    case QEvent::WindowUnblocked: // shown beside a dialog, it has no keyboard and nothing beneath it
        Q_EMIT closeRequested();
        break;
    default:
        break;
    }
    return false;
}

Layer layerAt(const QRect& rectangle, const QRect& freeArea) {
    const int left = rectangle.left() - freeArea.left();
    const int top = rectangle.top() - freeArea.top();
    const int right = freeArea.right() - rectangle.right();
    const int bottom = freeArea.bottom() - rectangle.bottom();
    Layer layer{.edges = {}, .distances = {}, .heedsPanels = true, .isOnCurrentScreen = true};
    if (left < right) {
        layer.edges |= Qt::LeftEdge;
        layer.distances.setLeft(left);
    } else {
        layer.edges |= Qt::RightEdge;
        layer.distances.setRight(right);
    }
    if (top <= bottom) {
        layer.edges |= Qt::TopEdge;
        layer.distances.setTop(top);
    } else {
        layer.edges |= Qt::BottomEdge;
        layer.distances.setBottom(bottom);
    }
    return layer;
}

} // namespace zamber::wayland
