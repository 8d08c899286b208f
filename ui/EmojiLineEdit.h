// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QInputMethodEvent>
#include <QLineEdit>

namespace zamber::ui {

/// A line edit whose emoji are coloured, also while an input method composes beside them. What is being composed when
/// the line is hidden, or when its window loses the keyboard, is forgotten; Qt would write it.
class EmojiLineEdit final : public QLineEdit {
    Q_OBJECT

public:
    explicit EmojiLineEdit(QWidget* parent);

protected:
    void inputMethodEvent(QInputMethodEvent* event) override;
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void take(QInputMethodEvent& event);
    void formatText();
    void forgetComposition();

    QString m_composed;                                   ///< shown at the caret, and no part of the text yet
    QList<QInputMethodEvent::Attribute> m_composedFormat; ///< as the input method wants it shown
};

} // namespace zamber::ui
