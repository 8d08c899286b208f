// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "settings/SettingsPage.h"

#include "settings/SettingsTheme.h"
#include "ui/OverlayScrollBar.h"

#include <QEvent>
#include <QVBoxLayout>

namespace zamber::settings {

namespace {
constexpr int PADDING = 20;
constexpr int FOCUS_MARGIN = 24; // scrolls the whole row into view, not its control alone
} // namespace

SettingsPage::SettingsPage(const SettingsTheme& theme)
    : m_theme(theme) {
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWidgetResizable(true);
    setFocusPolicy(Qt::NoFocus);
    auto* content = new QWidget;
    m_column = new QVBoxLayout(content);
    m_column->setContentsMargins(PADDING, PADDING, PADDING, PADDING);
    m_column->setSpacing(0);
    m_column->setAlignment(Qt::AlignTop);
    setWidget(content);
    viewport()->setAutoFillBackground(false);
    content->setAutoFillBackground(false); // which setWidget has switched on
    auto* scrollBar = new ui::OverlayScrollBar(this);
    theme.apply(scrollBar, [scrollBar, &theme](const ui::Palette& palette) {
        scrollBar->setColors(palette);
        scrollBar->setMotion(theme.motion());
    });
}

void SettingsPage::add(QWidget* part) {
    m_column->addWidget(part);
    for (QWidget* const control : part->findChildren<QWidget*>()) {
        if (control->focusPolicy() != Qt::NoFocus) {
            control->installEventFilter(this);
        }
    }
}

bool SettingsPage::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn) {
        ensureWidgetVisible(qobject_cast<QWidget*>(watched), 0, FOCUS_MARGIN);
    }
    return QScrollArea::eventFilter(watched, event);
}

} // namespace zamber::settings
