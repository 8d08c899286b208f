// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "settings/SettingsServices.h"
#include "settings/SettingsTab.h"

#include <QWidget>

namespace zamber::settings {

class SettingsTheme;
class SettingsSidebar;

/// The pages' names on one side, the page that is selected on the other. Starts with the General page each time.
class SettingsView final : public QWidget {
    Q_OBJECT

public:
    /// The theme and what the services refer to outlive the view.
    SettingsView(const SettingsTheme& theme, const SettingsServices& services);

    SettingsTab selectedTab() const { return m_selectedTab; }
    QWidget* page() const { return m_page; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void select(SettingsTab tab);
    QWidget* makePage(SettingsTab tab) const;

    const SettingsTheme& m_theme;
    SettingsServices m_services;
    SettingsTab m_selectedTab = SettingsTab::General;
    SettingsSidebar* m_sidebar;
    QWidget* m_page = nullptr;
};

} // namespace zamber::settings
