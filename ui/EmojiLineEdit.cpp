// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "ui/EmojiLineEdit.h"

#include "ui/EmojiFonts.h"

#include <QGuiApplication>
#include <QInputMethod>
#include <QTextLayout>
#include <QWindow>

namespace zamber::ui {

EmojiLineEdit::EmojiLineEdit(QWidget* parent)
    : QLineEdit(parent) {
    connect(this, &QLineEdit::textChanged, this, &EmojiLineEdit::formatText);
}

void EmojiLineEdit::inputMethodEvent(QInputMethodEvent* event) {
    // Qt has the input method write what it is composing while a window is being hidden.
    QInputMethodEvent nothing;
    take(window()->isHidden() ? nothing : *event);
}

void EmojiLineEdit::take(QInputMethodEvent& event) {
    m_composed = event.preeditString();
    m_composedFormat.clear();
    for (const QInputMethodEvent::Attribute& attribute : event.attributes()) {
        // A selection is made once, and nothing else is heeded by line edits.
        if (!m_composed.isEmpty() &&
            (attribute.type == QInputMethodEvent::TextFormat || attribute.type == QInputMethodEvent::Cursor)) {
            m_composedFormat.append(attribute);
        }
    }
    QLineEdit::inputMethodEvent(&event);
    formatText();
}

void EmojiLineEdit::formatText() {
    // Input methods are the only ones that a line edit lets say how its text looks, each time in place of the time
    // before. What is being composed has to be said again, or it would vanish.
    QString shown = text();
    shown.insert(cursorPosition(), m_composed);
    QList<QInputMethodEvent::Attribute> attributes = m_composedFormat;
    for (const QTextLayout::FormatRange& range : emojiFormats(shown, font())) {
        attributes.append({QInputMethodEvent::TextFormat, range.start - cursorPosition(), range.length, range.format});
    }
    QInputMethodEvent formats(m_composed, attributes);
    QLineEdit::inputMethodEvent(&formats);
}

bool EmojiLineEdit::event(QEvent* event) {
    if (event->type() == QEvent::WindowDeactivate) {
        forgetComposition();
    }
    return QLineEdit::event(event);
}

bool EmojiLineEdit::eventFilter(QObject* watched, QEvent* event) {
    // The window is told first, and has the input method write what it is composing.
    if (event->type() == QEvent::FocusAboutToChange) {
        // A dead key that was pressed before the line was hidden may have reached the input method only after that.
        QGuiApplication::inputMethod()->reset();
        forgetComposition();
    } else if (event->type() == QEvent::Move || event->type() == QEvent::Expose) {
        // Input methods show their phrases at the caret. The window's place may be known only after it has the focus.
        QGuiApplication::inputMethod()->update(Qt::ImCursorRectangle);
    }
    return QLineEdit::eventFilter(watched, event);
}

void EmojiLineEdit::showEvent(QShowEvent* event) {
    QLineEdit::showEvent(event);
    if (QWindow* const handle = window()->windowHandle()) { // another one when the window was made anew
        handle->installEventFilter(this);
    }
}

void EmojiLineEdit::hideEvent(QHideEvent* event) {
    QLineEdit::hideEvent(event);
    forgetComposition();
}

void EmojiLineEdit::forgetComposition() {
    if (hasFocus()) { // also a dead key that waits for its letter, of which nothing is seen
        QGuiApplication::inputMethod()->reset();
    }
    if (!m_composed.isEmpty()) {
        QInputMethodEvent nothing;
        take(nothing);
    }
}

} // namespace zamber::ui
