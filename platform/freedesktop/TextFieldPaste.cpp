// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/TextFieldPaste.h"

#include "platform/Pasteboard.h"

#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>

#include <algorithm>

namespace zamber::freedesktop {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype MOST_BYTES_A_CHARACTER = 4;

} // namespace

TextFieldPaste::TextFieldPaste(const Pasteboard& pasteboard)
    : m_pasteboard(pasteboard) {
    QCoreApplication::instance()->installEventFilter(this);
}

bool TextFieldPaste::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress && event->type() != QEvent::ContextMenu) {
        return false;
    }
    auto* const field = qobject_cast<QLineEdit*>(watched);
    if (field == nullptr || field->isReadOnly()) {
        return false;
    }
    if (event->type() == QEvent::ContextMenu) {
        const auto& wish = *static_cast<QContextMenuEvent*>(event);
        if (field->contextMenuPolicy() != Qt::DefaultContextMenu || wish.reason() != QContextMenuEvent::Mouse) {
            return false;
        }
        showMenu(*field, wish.globalPos());
        return true;
    }
    if (static_cast<QKeyEvent*>(event)->matches(QKeySequence::Paste)) {
        pasteInto(*field);
        return true;
    }
    return false;
}

void TextFieldPaste::pasteInto(QLineEdit& field) const {
    if (const std::optional<QByteArray> text = m_pasteboard.string()) {
        // No more is converted than the field can hold: the copied text may be a whole book.
        const qsizetype bytes = std::min(text->size(), MOST_BYTES_A_CHARACTER * field.maxLength());
        field.insert(QString::fromUtf8(QByteArrayView(*text).first(bytes)));
    }
}

void TextFieldPaste::showMenu(QLineEdit& field, QPoint place) const {
    // Qt's own menu looks into the clipboard to know whether there is something to paste.
    auto* const menu = new QMenu(&field);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto add = [&](const QString& title, QKeySequence::StandardKey key, bool isEnabled, auto action) {
        QAction* const entry = menu->addAction(title);
        entry->setShortcut(key);
        entry->setEnabled(isEnabled);
        connect(entry, &QAction::triggered, &field, action);
    };
    add(u"Cut"_s, QKeySequence::Cut, field.hasSelectedText(), &QLineEdit::cut);
    add(u"Copy"_s, QKeySequence::Copy, field.hasSelectedText(), &QLineEdit::copy);
    add(u"Paste"_s, QKeySequence::Paste, m_pasteboard.string().has_value(), [this, &field] { pasteInto(field); });
    menu->addSeparator();
    add(u"Select All"_s, QKeySequence::SelectAll, !field.text().isEmpty(), &QLineEdit::selectAll);
    menu->popup(place);
}

} // namespace zamber::freedesktop
