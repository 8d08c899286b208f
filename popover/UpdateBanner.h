// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Palette.h"

#include <QWidget>

#include <functional>

namespace zamber {
class Symbols;
}

namespace zamber::ui {
class BorderedButton;
class PlainButton;
class SymbolView;
class TextLabel;
} // namespace zamber::ui

namespace zamber::popover {

/// A newer version for the banner to name, and the actions of its buttons.
struct UpdateNotice {
    QString latestVersion;
    std::function<void()> download;
    std::function<void()> skip;
};

/// A line that names a newer version, with a button to get it and one to skip it.
class UpdateBanner final : public QWidget {
    Q_OBJECT

public:
    UpdateBanner(const Symbols& symbols, QWidget* parent);

    void setNotice(const UpdateNotice& notice);
    void setColors(const ui::Palette& palette);

    /// What the banner's buttons do; nothing while it is not shown.
    void download();
    void skip();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    ui::SymbolView* m_icon;
    ui::TextLabel* m_text;
    ui::BorderedButton* m_update;
    ui::PlainButton* m_skip;
    UpdateNotice m_notice;
    ui::Palette m_palette;
};

} // namespace zamber::popover
