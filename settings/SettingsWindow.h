// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "settings/SettingsLook.h"
#include "settings/SettingsServices.h"

#include <memory>

namespace zamber {

class SettingsView;

/// The one settings window of the program, in the middle of the screen. What is in it lasts until it is closed.
class SettingsWindow final : public QObject {
    Q_OBJECT

public:
    /// All of them outlive the window.
    SettingsWindow(const Symbols& symbols, const Appearance& appearance, const SettingsServices& services);
    ~SettingsWindow() override;

    /// Shows the window on the desktop that the user is on, in front and with the keyboard, wherever it was.
    void show();

    /// Takes over the desktop's look. To be called when the appearance has changed.
    void updateAppearance();

    /// Nothing while the window is closed.
    SettingsView* view() const { return m_view.get(); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    SettingsLook m_look;
    SettingsServices m_services;
    std::unique_ptr<SettingsView> m_view;
};

} // namespace zamber
