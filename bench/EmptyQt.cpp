// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT

// A Qt program that does next to nothing, in the same modules: it sits in the tray, and Super+Shift+V shows an empty
// window of the popover's size with a text field. The program's figures are held against what this one costs.

#include <QAbstractNativeEventFilter>
#include <QApplication>
#include <QDBusConnection>
#include <QLineEdit>
#include <QShortcut>
#include <QSvgRenderer>
#include <QSystemTrayIcon>
#include <QVBoxLayout>

#include <xcb/xcb.h>

namespace {

constexpr xcb_keycode_t KEY_V = 55;
constexpr QSize POPOVER_SIZE(440, 420);

class EmptyWindow final : public QWidget, public QAbstractNativeEventFilter {
public:
    EmptyWindow()
        : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint) {
        setAttribute(Qt::WA_QuitOnClose, false);
        auto* column = new QVBoxLayout(this);
        column->addWidget(&m_field);
        column->addStretch();
        resize(POPOVER_SIZE);
        connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, &QWidget::hide);
        winId(); // creates the window now, as the program does
    }

    bool nativeEventFilter(const QByteArray&, void* message, qintptr*) override {
        const auto& event = *static_cast<const xcb_generic_event_t*>(message);
        if ((event.response_type & 0x7F) == XCB_KEY_PRESS &&
            reinterpret_cast<const xcb_key_press_event_t&>(event).detail == KEY_V && !isVisible()) {
            show();
            raise();
            activateWindow();
            m_field.setFocus();
        }
        return false;
    }

private:
    QLineEdit m_field;
};

void grabHotKey(const QApplication& application) {
    auto* const connection = application.nativeInterface<QNativeInterface::QX11Application>()->connection();
    xcb_grab_key(connection, 1, xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root,
                 XCB_MOD_MASK_4 | XCB_MOD_MASK_SHIFT, KEY_V, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    xcb_flush(connection);
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QDBusConnection::sessionBus();
    // So that the modules are loaded.
    const QSvgRenderer renderer;
    QPixmap square(22, 22);
    square.fill(Qt::white);
    QSystemTrayIcon icon{QIcon(square)};
    icon.show();
    EmptyWindow window;
    application.installNativeEventFilter(&window);
    grabHotKey(application);
    return QApplication::exec();
}
