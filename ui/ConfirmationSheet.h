// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Palette.h"

#include <QWidget>

namespace zamber::ui {

class BorderedButton;
class TextLabel;

/// The texts of a confirmation: the question, and the title of its destructive button.
struct Confirmation {
    QString title;
    QString message;
    QString destructiveButton;
};

/// A question that covers a whole view until one of its two buttons, the destructive one and "Cancel", is pressed.
class ConfirmationSheet final : public QWidget {
    Q_OBJECT

public:
    ConfirmationSheet(const Confirmation& confirmation, QWidget* covered);

    void setColors(const Palette& palette);

signals:
    void confirmed();
    /// Either button was pressed.
    void dismissed();

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* m_card;
    TextLabel* m_title;
    TextLabel* m_message;
    BorderedButton* m_confirm;
    BorderedButton* m_cancel;
    Palette m_palette;
};

} // namespace zamber::ui
