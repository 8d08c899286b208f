// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Palette.h"

#include <QList>
#include <QWidget>

namespace zamber {
class Symbols;
}

namespace zamber::ui {
class CapsuleBadge;
class KeyCap;
class PlainButton;
class SymbolView;
class TextLabel;
} // namespace zamber::ui

namespace zamber::popover {

/// The top of the popover: the program's name, how full the history is, and the button for the settings.
class PopoverHeader final : public QWidget {
    Q_OBJECT

public:
    enum class SettingsButton { Shown, Hidden };

    PopoverHeader(const Symbols& symbols, SettingsButton settingsButton, QWidget* parent);

    /// Shows "count/max", or nothing for an empty history.
    void setCount(qsizetype count, int max);
    void setColors(const ui::Palette& palette);

signals:
    void settingsRequested();

private:
    ui::SymbolView* m_icon;
    ui::TextLabel* m_title;
    ui::CapsuleBadge* m_badge;
    ui::PlainButton* m_settings = nullptr;
};

/// The bottom of the popover: hints about the keys, and the button that clears the history.
class PopoverFooter final : public QWidget {
    Q_OBJECT

public:
    PopoverFooter(const Symbols& symbols, QWidget* parent);

    void setClearShown(bool isShown);
    void setColors(const ui::Palette& palette);

signals:
    void clearRequested();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QList<ui::KeyCap*> m_keys;
    QList<ui::TextLabel*> m_labels;
    ui::PlainButton* m_clear;
    ui::Palette m_palette;
};

/// Stands in the list's place when no entry is to be listed.
class EmptyState final : public QWidget {
    Q_OBJECT

public:
    /// The hint says which key ⌘ is, where the keyboard does not.
    EmptyState(const Symbols& symbols, const QString& commandKeyHint, QWidget* parent);

    enum class Reason { EmptyHistory, NoMatch };
    void setReason(Reason reason);
    void setColors(const ui::Palette& palette);

private:
    ui::SymbolView* m_icon;
    ui::TextLabel* m_title;
    ui::TextLabel* m_hint;
};

} // namespace zamber::popover
