// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "settings/SettingsServices.h"
#include "settings/SettingsTheme.h"

#include <QtGui/qwindowdefs.h>

#include <functional>
#include <memory>

namespace zamber::settings {

class SettingsView;

/// The one settings window of the program, in the middle of the screen. Its widgets are made anew at each opening.
class SettingsWindow final : public QObject {
    Q_OBJECT

public:
    /// Brings a window to the front and to the desktop that the user is on: showing it may do neither.
    using BringToFront = std::function<void(WId)>;

    /// All arguments outlive the window.
    SettingsWindow(const Symbols& symbols, Appearance& appearance, const SettingsServices& services,
                   BringToFront bringToFront);
    ~SettingsWindow() override;

    /// Shows the window on the desktop that the user is on, in front and with the keyboard, wherever it was.
    void show();

    /// Nothing while the window is closed.
    SettingsView* view() const { return m_view.get(); }

signals:
    /// The window has come to the front, just opened or not.
    void cameToFront();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    SettingsTheme m_theme;
    SettingsServices m_services;
    BringToFront m_bringToFront;
    std::unique_ptr<SettingsView> m_view;
};

} // namespace zamber::settings
