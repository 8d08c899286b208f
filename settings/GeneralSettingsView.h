// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "settings/SettingsPage.h"
#include "settings/SettingsServices.h"

namespace zamber::settings {

/// The page about the program as a whole: start at login, look and sound, updates, and the permission to paste.
class GeneralSettingsView final : public SettingsPage {
    Q_OBJECT

public:
    GeneralSettingsView(const SettingsTheme& theme, const SettingsServices& services);

private:
    QWidget* startupSection();
    QWidget* appearanceSection();
    QWidget* feedbackSection();
    QWidget* updatesSection();
    QWidget* permissionsSection();
    QWidget* grantedLabel() const;
    QWidget* grantButton();
    void changeLaunchAtLogin(bool isOn);

    SettingsServices m_services;
};

} // namespace zamber::settings
