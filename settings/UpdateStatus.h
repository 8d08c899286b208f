// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

namespace zamber::ui {
class BorderedButton;
class ProgressIndicator;
class TextLabel;
} // namespace zamber::ui

namespace zamber::update {
class UpdateManager;
}

namespace zamber::settings {

class SettingsTheme;

/// The state of updates and the one button for it: a check that is under way; else the newer version; else that there
/// is none.
class UpdateStatus final : public QWidget {
    Q_OBJECT

public:
    /// Follows the manager, which outlives it.
    UpdateStatus(const SettingsTheme& theme, update::UpdateManager& updates);

private:
    void refresh();
    void color() const;

    const SettingsTheme& m_theme;
    const update::UpdateManager& m_updates;
    ui::ProgressIndicator* m_progress;
    ui::TextLabel* m_text;
    ui::BorderedButton* m_download;
    ui::BorderedButton* m_check;
};

} // namespace zamber::settings
