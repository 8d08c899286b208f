// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "settings/SettingsWindow.h"

#include "platform/Appearance.h"
#include "settings/SettingsView.h"

#include <QEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPointer>
#include <QScreen>

#include <utility>

namespace zamber::settings {

using namespace Qt::StringLiterals;

SettingsWindow::SettingsWindow(const Symbols& symbols, Appearance& appearance, const SettingsServices& services,
                               BringToFront bringToFront)
    : m_theme(symbols, appearance)
    , m_services(services)
    , m_bringToFront(std::move(bringToFront)) {
    appearance.addChangedHandler([theme = QPointer(&m_theme)] {
        if (theme) {
            theme->update();
        }
    });
}

SettingsWindow::~SettingsWindow() = default;

void SettingsWindow::show() {
    if (!m_view) {
        m_view = std::make_unique<SettingsView>(m_theme, m_services);
        m_view->setWindowTitle(u"Zamber Settings"_s);
        // No maximise button: the size is fixed.
        m_view->setWindowFlags(Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                               Qt::WindowMinimizeButtonHint | Qt::WindowCloseButtonHint);
        m_view->installEventFilter(this);
        const QRect workArea = QGuiApplication::primaryScreen()->availableGeometry();
        m_view->move(workArea.center() - m_view->rect().center());
    }
    m_view->showNormal();
    m_view->raise();
    m_bringToFront(m_view->winId());
    emit cameToFront();
}

bool SettingsWindow::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Close) {
        m_view.release()->deleteLater(); // this may be called by one of its events
    } else if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->matches(QKeySequence::Close)) {
        m_view->close();
        return true;
    }
    return QObject::eventFilter(watched, event);
}

} // namespace zamber::settings
