// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "settings/SettingsPage.h"
#include "settings/SettingsServices.h"

namespace zamber::settings {

/// When the program starts, how it looks and sounds, how old it is, and whether it may paste.
class GeneralSettingsView final : public SettingsPage {
    Q_OBJECT

public:
    GeneralSettingsView(const SettingsLook& look, const SettingsServices& services);

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
