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
class BorderedButton;
class SymbolView;
class TextLabel;
} // namespace zamber::ui

namespace zamber::app {

/// Lightweight markup as rich text: what stands between double asterisks is bold. Everything else is taken literally.
QString richTextOfMarkup(const QString& markup);

/// Where the user says that the program may post key events.
enum class GrantedBy {
    Settings, ///< in the settings of the system
    Dialog,   ///< in a dialog of the desktop's, which a button of the view asks for
};

/// What the user has to do so that the program may post key events.
class PermissionView final : public QWidget {
    Q_OBJECT

public:
    PermissionView(const Appearance& appearance, const Symbols& symbols, GrantedBy grantedBy = GrantedBy::Settings,
                   QWidget* parent = nullptr);

    /// Takes over the desktop's look. To be called when the appearance has changed.
    void updateAppearance();

Q_SIGNALS:
    void dialogRequested();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QWidget* createSteps(GrantedBy grantedBy);
    ui::BorderedButton* createButton();

    const Appearance& m_appearance;
    const Symbols& m_symbols;
    ui::Palette m_palette;
    ui::SymbolView* m_shield;
    ui::TextLabel* m_title;
    QList<ui::SymbolView*> m_stepNumbers;
    QList<QLabel*> m_stepTexts;
    ui::BorderedButton* m_button; // null where the user grants it in the settings
    ui::TextLabel* m_hint;
};

} // namespace zamber::app
