// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/popover/PopoverWindow.h"

#include "platform/Appearance.h"
#include "platform/freedesktop/popover/PopoverPlacement.h"

#include <QApplication>
#include <QMouseEvent>
#include <QScreen>
#include <QTimer>
#include <QWindow>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <utility>

namespace zamber::freedesktop::popover {

namespace {

/// Fonts and layout take longer than all else at the start; what is on the clipboard then is read before, and the
/// icon is in the tray.
constexpr std::chrono::milliseconds CONTENT_DELAY{100};

int distance(const QRect& rectangle, QPoint point) {
    const int x = std::max({rectangle.left() - point.x(), 0, point.x() - rectangle.right()});
    const int y = std::max({rectangle.top() - point.y(), 0, point.y() - rectangle.bottom()});
    return x + y;
}

/// The screen that the point is on, or the nearest one: an icon may outlive the monitor it was on.
const QScreen* screenNear(QPoint point) {
    const auto screens = QGuiApplication::screens();
    return *std::ranges::min_element(screens, {},
                                     [point](const QScreen* screen) { return distance(screen->geometry(), point); });
}

const QWidget* widgetOfWindow(const QObject* window) {
    const auto topLevels = QApplication::topLevelWidgets();
    const auto found = std::ranges::find(topLevels, window, &QWidget::windowHandle);
    return found == topLevels.end() ? nullptr : *found;
}

/// Is the window the popover's, or a menu or dialog that was opened from it?
bool belongsTo(const QWidget* window, const QWidget* frame) {
    while (window != nullptr && window != frame) {
        window = window->parentWidget();
    }
    return window == frame;
}

} // namespace

PopoverWindow::PopoverWindow(const Appearance& appearance, WindowSystem windowSystem)
    : m_systemAppearance(appearance)
    , m_windowSystem(std::move(windowSystem)) {
    m_frame.winId(); // creates the window now, so that the first opening does not wait for it
    connect(&m_frame, &PopoverFrame::hidden, this, &PopoverWindow::closed);
    // Which window becomes active instead is known only after this turn of the main loop.
    connect(&m_frame, &PopoverFrame::deactivated, this,
            [this] { QTimer::singleShot(0, this, &PopoverWindow::closeUnlessOursIsActive); });
    QCoreApplication::instance()->installEventFilter(this);
}

void PopoverWindow::setContent(ContentMaker makeContent) {
    m_makeContent = std::move(makeContent);
    QTimer::singleShot(CONTENT_DELAY, this, &PopoverWindow::makeContentUnlessMade);
}

void PopoverWindow::makeContentUnlessMade() {
    if (m_makeContent) {
        m_frame.setContent(std::exchange(m_makeContent, {})());
    }
}

void PopoverWindow::setContentSize(QSize points) {
    m_contentSize = points;
    if (isShown()) {
        place();
    }
}

void PopoverWindow::setAppearance(PopoverAppearance appearance) {
    m_appearance = appearance;
    applyLook();
}

void PopoverWindow::show(const Anchor& anchor, PopoverEdge preferredEdge) {
    m_anchor = anchor;
    m_preferredEdge = preferredEdge;
    const bool isOpening = !isShown();

    makeContentUnlessMade();
    applyLook();
    m_frame.setShape(m_windowSystem.isComposited() ? FrameShape::RoundedWithShadow : FrameShape::Square);
    place();
    m_frame.show();
    m_frame.raise();
    m_frame.activateWindow();
    m_frame.setFocus();
    m_windowSystem.activateWindow(m_frame.winId());
    if (isOpening) {
        emit shown();
    }
}

void PopoverWindow::performClose() {
    m_frame.hide();
}

bool PopoverWindow::isShown() const {
    return m_frame.isVisible();
}

void PopoverWindow::pressedOutside(QPoint position) {
    if (isShown() && !frameRectangle().contains(position)) {
        performClose();
    }
}

bool PopoverWindow::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonPress && watched->isWindowType() && isShown()) {
        const QWidget* window = widgetOfWindow(watched);
        const QPoint position = static_cast<QMouseEvent*>(event)->globalPosition().toPoint();
        if (!belongsTo(window, &m_frame)) {
            m_windowSystem.pressedElsewhere ? m_windowSystem.pressedElsewhere(position) : performClose();
        } else if (window == &m_frame) {
            pressedOutside(position); // on the shadow
        }
    } else if (event->type() == QEvent::ApplicationPaletteChange) {
        applyLook();
    }
    return false;
}

void PopoverWindow::place() {
    if (m_anchor) {
        const QRect workArea = workAreaOf(*screenNear(m_anchor->screenRectangle.center()));
        m_frame.setContentGeometry(
            popoverPlacement(m_anchor->screenRectangle, m_contentSize, m_preferredEdge, workArea));
    }
}

QRect PopoverWindow::workAreaOf(const QScreen& screen) const {
    const QRect available = screen.availableGeometry();
    if (!m_windowSystem.workArea || QGuiApplication::screens().size() < 2) {
        return available;
    }
    // A screen begins at the same place in points and in pixels; only what lies inside it is scaled.
    const QPoint origin = screen.geometry().topLeft();
    const double ratio = screen.devicePixelRatio();
    const QRect free = m_windowSystem.workArea(QRect(origin, (QSizeF(screen.geometry().size()) * ratio).toSize()));
    const QPointF topLeft = QPointF(free.topLeft() - origin) / ratio;
    const QPointF bottomRight = QPointF(free.topLeft() - origin + QPoint(free.width(), free.height())) / ratio;
    const QPoint start(static_cast<int>(std::ceil(topLeft.x())), static_cast<int>(std::ceil(topLeft.y())));
    const QPoint end(static_cast<int>(bottomRight.x()), static_cast<int>(bottomRight.y()));
    return QRect(start + origin, QSize(end.x() - start.x(), end.y() - start.y())) & available;
}

void PopoverWindow::applyLook() {
    const bool isDark = m_appearance == PopoverAppearance::Dark ||
                        (m_appearance == PopoverAppearance::System && m_systemAppearance.isDark());
    m_frame.setLook(isDark ? FrameLook::Dark : FrameLook::Light);
}

void PopoverWindow::closeUnlessOursIsActive() {
    if (QApplication::activeWindow() == nullptr && QApplication::activeModalWidget() == nullptr &&
        QApplication::activePopupWidget() == nullptr) {
        performClose();
    }
}

} // namespace zamber::freedesktop::popover
