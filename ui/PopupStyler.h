// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/MenuStyle.h"

#include <QObject>
#include <QPalette>

#include <functional>
#include <optional>

class QMenu;

namespace zamber::ui {

/// Styles every menu and tool tip as it opens: the tray icon's menu, those of text fields and of rows.
/// Their colours are those of the widget they belong to, where that has colours of its own, else those that were set
/// here. As the application's colours for menus these would last until the next change of the desktop's theme, and Qt
/// would tell of them as it tells of a new theme.
class PopupStyler final : public QObject {
public:
    /// Comes after the application object. `isComposited` says whether translucent windows are blended with what lies
    /// behind them at this moment.
    explicit PopupStyler(std::function<bool()> isComposited);
    ~PopupStyler() override;

    void setColors(const QPalette& palette);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void prepare(QWidget& popup);
    void updateShape();
    void color(QWidget& popup) const;
    void placeCard(QWidget& popup) const;
    bool closeOnShadow(QMenu& menu, const QEvent& press) const;

    std::function<bool()> m_isComposited;
    std::optional<QPalette> m_palette;
    MenuStyle m_style;
};

} // namespace zamber::ui
