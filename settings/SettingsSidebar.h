// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "settings/SettingsTab.h"

#include <QListWidget>

namespace zamber::settings {

class SettingsTheme;

/// The pages' names in three groups, of which the first has no title. The titles stand above the first item of their
/// group and are no items themselves.
class SettingsSidebar final : public QListWidget {
    Q_OBJECT

public:
    explicit SettingsSidebar(const SettingsTheme& theme);

    SettingsTab selectedTab() const;

    QSize sizeHint() const override;

    /// Where the page's name stands, without the title above it.
    QRect visualRect(const QModelIndex& index) const override;

signals:
    void tabSelected(SettingsTab tab);

protected:
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    class Delegate;
    bool isOnTitle(const QPoint& position) const;
    void setUsedByKeyboard(bool isUsed);

    const SettingsTheme& m_theme;
    bool m_isUsedByKeyboard = false; ///< then the focus has a ring, which a mouse does not need
};

} // namespace zamber::settings
