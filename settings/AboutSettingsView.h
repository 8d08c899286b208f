// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

namespace zamber {
class AppBundle;
}

namespace zamber::settings {

class SettingsTheme;

/// The page about the program: its icon, version and makers in one column in the middle.
class AboutSettingsView final : public QWidget {
    Q_OBJECT

public:
    AboutSettingsView(const SettingsTheme& theme, const AppBundle& bundle);
};

} // namespace zamber::settings
