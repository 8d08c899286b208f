// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/popover/PopoverWindow.h"

#include "platform/Appearance.h"
#include "platform/freedesktop/popover/PopoverPlacement.h"
#include "platform/freedesktop/popover/WorkArea.h"

#include <QApplication>
#include <QMouseEvent>
#include <QScreen>
#include <QTimer>
#include <QWindow>

#include <algorithm>
#include <chrono>
#include <utility>

namespace zamber::freedesktop::popover {

namespace {

/// Fonts and layout take longer than all else at the start. The delay lets the clipboard be read and the icon be shown
/// before.
constexpr std::chrono::milliseconds CONTENT_DELAY{100};

/// How often the focus is looked at while a grab hides it from Qt.
constexpr std::chrono::milliseconds LOOK_INTERVAL{100};

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

/// Is the window the popover's, or a menu or dialog that was opened from it?
bool belongsTo(const QWidget* window, const QWidget* frame) {
    while (window != nullptr && window != frame) {
        window = window->parentWidget();
    }
    return window == frame;
}

/// Where the button was pressed in the window. On Wayland, Qt says of every window that it is at the screen's origin;
/// the popover's own are where they were told to be, as `isInside` has it.
QPoint placeOf(const QMouseEvent& press, const QObject* window, const QWidget* frame) {
    const auto widgets = QApplication::topLevelWidgets();
    const auto widget =
        std::ranges::find_if(widgets, [&](const QWidget* each) { return each->windowHandle() == window; });
    return widget != widgets.end() && belongsTo(*widget, frame)
               ? (*widget)->geometry().topLeft() + press.position().toPoint()
               : press.globalPosition().toPoint();
}

} // namespace

PopoverWindow::PopoverWindow(const Appearance& appearance, WindowSystem& windowSystem)
    : m_systemAppearance(appearance)
    , m_windowSystem(windowSystem) {
    m_frame.winId(); // creates the window now, so that the first opening does not wait for it
    connect(&m_frame, &PopoverFrame::hidden, this, &PopoverWindow::closed);
    m_look.setSingleShot(true);
    m_look.callOnTimeout(this, &PopoverWindow::closeUnlessOursIsActive);
    // A popover that is hidden loses the focus, which is no reason to close the next one.
    connect(&m_frame, &PopoverFrame::hidden, &m_look, &QTimer::stop);
    // The window that becomes active instead is known only after this turn of the main loop.
    const auto closeSoon = [this] { m_look.start(0); };
    connect(&m_frame, &PopoverFrame::deactivated, this, closeSoon);
    connect(&windowSystem, &WindowSystem::focusLost, this, closeSoon);
    connect(&windowSystem, &WindowSystem::closeRequested, this, &PopoverWindow::performClose);
    // A compositor that ends while the popover is open would leave the shadow's room black.
    connect(&windowSystem, &WindowSystem::compositedChanged, this, [this] {
        if (isShown()) {
            applyShape();
            place();
        }
    });
    QCoreApplication::instance()->installEventFilter(this);
}

void PopoverWindow::setContent(ContentMaker makeContent) {
    m_makeContent = std::move(makeContent);
    QTimer::singleShot(CONTENT_DELAY, this, &PopoverWindow::rehearse);
}

void PopoverWindow::rehearse() {
    if (!m_makeContent) {
        return; // it has been shown before this
    }
    makeContentUnlessMade();
    applyColorScheme();
    applyShape();
    m_frame.setContentGeometry({QPoint(), m_contentSize});
    // Drawn once where nobody sees it, so that the first opening finds the fonts, the layout of the rows and their
    // pictures ready.
    m_frame.grab();
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
    applyColorScheme();
}

void PopoverWindow::show(const Anchor& anchor, PopoverEdge preferredEdge) {
    m_anchor = anchor;
    m_preferredEdge = preferredEdge;
    const bool isOpening = !isShown();

    makeContentUnlessMade();
    applyColorScheme();
    applyShape();
    place();
    m_frame.show();
    // Each widget that is shown has asked to be painted soon. Where that is heard after the window system has asked for
    // the whole window, as on a busy machine, everything would be painted twice.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::UpdateLater);
    m_frame.raise();
    m_frame.activateWindow();
    m_frame.setFocus();
    m_windowSystem.presentPopover(m_frame.winId());
    if (isOpening) {
        emit shown();
    }
}

void PopoverWindow::performClose() {
    if (isShown()) {
        m_frame.hide();
        m_windowSystem.settleHidden();
    }
}

bool PopoverWindow::isShown() const {
    return m_frame.isVisible();
}

void PopoverWindow::press(Qt::MouseButton button, QPoint place) {
    if (isShown() && !isInside(place) && (!m_pressFilter || !m_pressFilter(button, place))) {
        performClose();
    }
}

bool PopoverWindow::isInside(QPoint place) const {
    // The popover's window is larger than the card that is seen, and its menus are windows of their own.
    return std::ranges::any_of(QApplication::topLevelWidgets(), [&](const QWidget* window) {
        return window->isVisible() && belongsTo(window, &m_frame) &&
               (window == &m_frame ? frameRectangle() : window->geometry()).contains(place);
    });
}

bool PopoverWindow::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonPress && watched->isWindowType()) {
        const auto& mouse = *static_cast<QMouseEvent*>(event);
        press(mouse.button(), placeOf(mouse, watched, &m_frame));
    } else if (event->type() == QEvent::ApplicationPaletteChange) {
        applyColorScheme();
    }
    return false;
}

void PopoverWindow::place() {
    if (m_anchor) {
        const QRect workArea = workAreaOf(*screenNear(m_anchor->screenRectangle.center()), m_windowSystem);
        m_frame.setContentGeometry(
            popoverPlacement(m_anchor->screenRectangle, m_contentSize, m_preferredEdge, workArea));
        m_windowSystem.place(m_frame.winId(), m_frame.geometry());
    }
}

void PopoverWindow::applyShape() {
    m_frame.setShape(m_windowSystem.isComposited() ? FrameShape::RoundedWithShadow : FrameShape::Square);
    const double ratio = m_frame.devicePixelRatioF();
    const QMargins shadow = m_frame.shadowMargins();
    m_windowSystem.setShadow(m_frame.winId(), (QMarginsF(shadow) * ratio).toMargins());
}

void PopoverWindow::applyColorScheme() {
    const bool isDark = m_appearance == PopoverAppearance::Dark ||
                        (m_appearance == PopoverAppearance::System && m_systemAppearance.isDark());
    m_frame.setColorScheme(isDark ? ColorScheme::Dark : ColorScheme::Light);
}

void PopoverWindow::closeUnlessOursIsActive() {
    if (!isShown() || QApplication::activeWindow() != nullptr || QApplication::activeModalWidget() != nullptr ||
        QApplication::activePopupWidget() != nullptr) {
        return;
    }
    if (m_windowSystem.hasKeyboardFocus()) {
        // The grab of a hot key that is held has the keyboard. Qt does not report where the focus goes meanwhile.
        m_look.start(LOOK_INTERVAL);
        return;
    }
    emit abandoned();
    performClose();
}

} // namespace zamber::freedesktop::popover
