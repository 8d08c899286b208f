// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QScrollArea>

class QVBoxLayout;

namespace zamber::settings {

class SettingsTheme;

/// A page that scrolls where it has to: a header and sections one under the other.
class SettingsPage : public QScrollArea {
    Q_OBJECT

public:
    explicit SettingsPage(const SettingsTheme& theme);

protected:
    void add(QWidget* part);
    const SettingsTheme& theme() const { return m_theme; }

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    const SettingsTheme& m_theme;
    QVBoxLayout* m_column;
};

} // namespace zamber::settings
