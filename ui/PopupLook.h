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

/// The look of every menu and tool tip: the tray icon's, those of text fields, those of rows. Each gets it as it opens.
/// Their colours are those of the widget they belong to, where that has colours of its own, else those that were set
/// here. As the application's colours for menus these would last until the next change of the desktop's theme, and Qt
/// would tell of them as it tells of a new theme.
class PopupLook final : public QObject {
public:
    /// Comes after the application object. `isComposited` says whether translucent windows are blended with what lies
    /// behind them at this moment.
    explicit PopupLook(std::function<bool()> isComposited);
    ~PopupLook() override;

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
