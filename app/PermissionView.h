// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Palette.h"

#include <QList>
#include <QString>
#include <QWidget>

class QLabel;

namespace zamber {
class Appearance;
class Symbols;
} // namespace zamber

namespace zamber::ui {
class SymbolView;
class TextLabel;
} // namespace zamber::ui

namespace zamber::app {

/// Lightweight markup as rich text: what stands between double asterisks is bold. Everything else is taken literally.
QString richTextOfMarkup(const QString& markup);

/// What the user has to do so that the program may post key events.
class PermissionView final : public QWidget {
    Q_OBJECT

public:
    PermissionView(const Appearance& appearance, const Symbols& symbols, QWidget* parent = nullptr);

    /// Takes over the desktop's look. To be called when the appearance has changed.
    void updateAppearance();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QWidget* createSteps();

    const Appearance& m_appearance;
    const Symbols& m_symbols;
    ui::Palette m_palette;
    ui::SymbolView* m_shield;
    ui::TextLabel* m_title;
    QList<ui::SymbolView*> m_stepNumbers;
    QList<QLabel*> m_stepTexts;
    ui::TextLabel* m_hint;
};

} // namespace zamber::app
