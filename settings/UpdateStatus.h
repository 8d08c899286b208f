// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

namespace zamber {

class BorderedButton;
class ProgressIndicator;
class SettingsLook;
class TextLabel;
class UpdateManager;

/// What there is to say about updates, and the one thing to do about it: nothing but that a check is under way; else
/// the version that there is; else that there is none.
class UpdateStatus final : public QWidget {
    Q_OBJECT

public:
    /// Follows the manager, which outlives it.
    UpdateStatus(const SettingsLook& look, UpdateManager& updates);

private:
    void refresh();
    void color() const;

    const SettingsLook& m_look;
    const UpdateManager& m_updates;
    ProgressIndicator* m_progress;
    TextLabel* m_text;
    BorderedButton* m_download;
    BorderedButton* m_check;
};

} // namespace zamber
