// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "app/PermissionWindow.h"

#include "app/PermissionView.h"

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace zamber::app {

namespace {

constexpr QSize CONTENT_POINTS{380, 200};

const QScreen* screenWithPointer() {
    const QScreen* const screen = QGuiApplication::screenAt(QCursor::pos());
    return screen != nullptr ? screen : QGuiApplication::primaryScreen();
}

} // namespace

PermissionWindow::PermissionWindow(const Appearance& appearance, const Symbols& symbols,
                                   std::function<void()> showDialog)
    : QWidget(nullptr, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint |
                           Qt::WindowStaysOnTopHint)
    , m_view(new PermissionView(appearance, symbols, showDialog ? GrantedBy::Dialog : GrantedBy::Settings, this)) {
    setWindowTitle(QStringLiteral("Zamber — Permission Required"));
    // The window appears unasked, while the user may be typing into another one.
    setAttribute(Qt::WA_ShowWithoutActivating);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_view);
    connect(m_view, &PermissionView::dialogRequested, this, [this, showDialog = std::move(showDialog)] {
        hide(); // it would be above the dialog
        showDialog();
    });
    // As high as its content, but no lower than designed where the font is small.
    setFixedSize(CONTENT_POINTS.width(), std::max(CONTENT_POINTS.height(), m_view->sizeHint().height()));
}

void PermissionWindow::showInCentre() {
    QRect place = rect();
    place.moveCenter(screenWithPointer()->availableGeometry().center());
    setGeometry(place);
    show(); // which brings it to the front; raising it would activate the application on a Mac
}

void PermissionWindow::updateAppearance() {
    m_view->updateAppearance();
}

} // namespace zamber::app
