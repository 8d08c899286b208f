// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "settings/SettingsView.h"

#include "settings/AboutSettingsView.h"
#include "settings/ClipboardSettingsView.h"
#include "settings/GeneralSettingsView.h"
#include "settings/SettingsSidebar.h"
#include "settings/SettingsTheme.h"
#include "settings/ShortcutsSettingsView.h"

#include <QHBoxLayout>
#include <QPainter>

namespace zamber::settings {

namespace {
constexpr QSize SIZE{650, 500};
} // namespace

SettingsView::SettingsView(const SettingsTheme& theme, const SettingsServices& services)
    : m_theme(theme)
    , m_services(services)
    , m_sidebar(new SettingsSidebar(theme)) {
    setFixedSize(SIZE);
    auto* columns = new QHBoxLayout(this);
    columns->setContentsMargins(0, 0, 0, 0);
    columns->setSpacing(0);
    columns->addWidget(m_sidebar);
    connect(m_sidebar, &SettingsSidebar::tabSelected, this, &SettingsView::select);
    theme.apply(this, [this](const ui::Palette& palette) {
        setPalette(palette.forWidgets());
        update();
    });
    select(SettingsTab::General);
    m_sidebar->setFocus();
}

void SettingsView::select(SettingsTab tab) {
    m_selectedTab = tab;
    delete m_page;
    m_page = makePage(tab);
    static_cast<QHBoxLayout*>(layout())->addWidget(m_page, 1);
    m_page->show();
}

QWidget* SettingsView::makePage(SettingsTab tab) const {
    switch (tab) {
    case SettingsTab::General:
        return new GeneralSettingsView(m_theme, m_services);
    case SettingsTab::Clipboard:
        return new ClipboardSettingsView(m_theme, m_services.defaults);
    case SettingsTab::Shortcuts:
        return new ShortcutsSettingsView(m_theme, m_services.defaults, m_services.commandKeyHint,
                                         m_services.desktopShortcut);
    case SettingsTab::About:
        break;
    }
    return new AboutSettingsView(m_theme, m_services.bundle);
}

void SettingsView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const ui::Palette& palette = m_theme.palette();
    const QRect sidebar = m_sidebar->geometry();
    painter.fillRect(rect(), palette.ultraThinMaterial);
    painter.fillRect(sidebar, palette.barMaterial);
    painter.fillRect(QRect(sidebar.right(), 0, 1, height()), palette.separator);
}

} // namespace zamber::settings
