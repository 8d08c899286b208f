// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/x11/IconWindow.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>

#include <algorithm>
#include <array>
#include <utility>

namespace zamber::x11 {

namespace {

/// What most trays make of an icon, in points; they tell by giving the window another size.
constexpr int USUAL_SIZE = 22;
/// A larger icon is a mistake of the tray's.
constexpr int LARGEST_SIZE = 128; // points

/// Returns when the server has done all that Qt has asked it for: another connection's requests may overtake Qt's.
void waitForQtsRequests() {
    xcb_connection_t* const connection = qGuiApp->nativeInterface<QNativeInterface::QX11Application>()->connection();
    const Owned<xcb_get_input_focus_reply_t> arrived(
        xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
}

} // namespace

IconWindow::IconWindow(const Connection& connection, Ground ground, Drawing drawing, const QString& title)
    : m_connection(connection)
    , m_ground(ground)
    , m_drawing(std::move(drawing)) {
    QSurfaceFormat pixels = format();
    pixels.setAlphaBufferSize(ground == Ground::Blended ? 8 : 0);
    setFormat(pixels);
    // A tray that ends hands the window back to the root window, where no window manager is to frame it.
    setFlags(Qt::Window | Qt::FramelessWindowHint | Qt::BypassWindowManagerHint);
    setTitle(title);
    setGeometry(0, 0, USUAL_SIZE, USUAL_SIZE);
    create();
    // NOLINTNEXTLINE(cppcoreguidelines-prefer-member-initializer): there is a window only once it has been created
    m_window = static_cast<xcb_window_t>(winId());
    waitForQtsRequests();
    describe();
}

void IconWindow::describe() const {
    const auto set = [this](xcb_atom_t property, xcb_atom_t type, const auto& numbers) {
        xcb_change_property(m_connection.raw(), XCB_PROP_MODE_REPLACE, m_window, property, type, 32,
                            static_cast<std::uint32_t>(numbers.size()), numbers.data());
    };
    constexpr std::array<std::uint32_t, 2> VERSION_AND_TO_BE_SHOWN{0, 1};
    const xcb_atom_t embedding = m_connection.intern("_XEMBED_INFO");
    set(embedding, embedding, VERSION_AND_TO_BE_SHOWN);
    // For trays that ask how small it may become (ICCCM, section 4.1.2.3).
    constexpr std::uint32_t HAS_MINIMUM_SIZE = 1U << 4U;
    const auto smallest = static_cast<std::uint32_t>(USUAL_SIZE * devicePixelRatio());
    const std::array<std::uint32_t, 18> hints{HAS_MINIMUM_SIZE, 0, 0, 0, 0, smallest, smallest};
    set(XCB_ATOM_WM_NORMAL_HINTS, XCB_ATOM_WM_SIZE_HINTS, hints);
}

void IconWindow::seeGround() const {
    if (m_ground == Ground::Copied) {
        // Only now: a window that shows its parent cannot be given to a parent of another depth.
        constexpr std::uint32_t PARENT_SHOWS = XCB_BACK_PIXMAP_PARENT_RELATIVE;
        xcb_change_window_attributes(m_connection.raw(), m_window, XCB_CW_BACK_PIXMAP, &PARENT_SHOWS);
    }
}

QImage IconWindow::ground() const {
    constexpr std::uint32_t EVERY_PLANE = ~0U;
    constexpr std::uint8_t BYTES_OF_A_PIXEL = 4;
    xcb_connection_t* const raw = m_connection.raw();
    const QSize pixels = size() * devicePixelRatio();
    const auto width = static_cast<std::uint16_t>(pixels.width());
    const auto height = static_cast<std::uint16_t>(pixels.height());
    xcb_clear_area(raw, 0, m_window, 0, 0, 0, 0);
    const auto cookie = xcb_get_image(raw, XCB_IMAGE_FORMAT_Z_PIXMAP, m_window, 0, 0, width, height, EVERY_PLANE);
    const Owned<xcb_get_image_reply_t> seen(xcb_get_image_reply(raw, cookie, nullptr));
    if (!seen || xcb_get_image_data_length(seen.get()) != BYTES_OF_A_PIXEL * width * height) {
        return {}; // not on the screen any more, or a screen of few colours
    }
    QImage copy = QImage(xcb_get_image_data(seen.get()), width, height, QImage::Format_RGB32).copy();
    copy.setDevicePixelRatio(devicePixelRatio());
    return copy;
}

void IconWindow::paintEvent(QPaintEvent* /*event*/) {
    const int side = std::min({width(), height(), LARGEST_SIZE});
    QImage icon = m_drawing(static_cast<int>(side * devicePixelRatio()));
    icon.setDevicePixelRatio(devicePixelRatio());
    const QImage behind = m_ground == Ground::Copied ? ground() : QImage();
    QPainter painter(this);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillRect(QRect({}, size()), Qt::transparent);
    painter.drawImage(0, 0, behind);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    painter.drawImage((width() - side) / 2, (height() - side) / 2, icon);
}

bool IconWindow::event(QEvent* event) {
    if (event->type() == QEvent::Leave) {
        Q_EMIT pointerLeft();
    }
    return QRasterWindow::event(event);
}

void IconWindow::mouseMoveEvent(QMouseEvent* event) {
    // The event of its entering does not count: that comes also when a menu closes that has covered a resting pointer.
    if (event->buttons() == Qt::NoButton) {
        Q_EMIT pointerMoved();
    }
}

void IconWindow::mousePressEvent(QMouseEvent* event) {
    m_pressedButton = event->button();
    Q_EMIT pointerLeft();
}

void IconWindow::mouseReleaseEvent(QMouseEvent* event) {
    const bool isClick = std::exchange(m_pressedButton, Qt::NoButton) == event->button();
    if (isClick && QRect({}, size()).contains(event->position().toPoint())) {
        Q_EMIT clicked(event->button());
    }
}

} // namespace zamber::x11
