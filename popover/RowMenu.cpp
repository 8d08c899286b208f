// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "popover/RowMenu.h"

#include "ui/MenuStyle.h"

#include <QKeyEvent>
#include <QKeySequence>

#include <algorithm>

namespace zamber::popover {

using namespace Qt::StringLiterals;

namespace {

/// As the keys are written on them.
QString keysText(const QString& keyEquivalent) {
    if (keyEquivalent == u"\r"_s) {
        return u"↩"_s;
    }
    const QString modifiers = keyEquivalent.front().isUpper() ? u"Ctrl+Shift+"_s : u"Ctrl+"_s;
    return QKeySequence(modifiers + keyEquivalent).toString(QKeySequence::NativeText);
}

} // namespace

QList<MenuItem> rowMenuLines(bool isPinned, const RowMenuActions& actions) {
    const auto line = [](const QString& title, const QString& key, const std::function<void()>& action) {
        return MenuItem{.title = title, .keyEquivalent = key, .action = action};
    };
    QList<MenuItem> lines{line(u"Copy"_s, u"\r"_s, actions.copy)};
    if (actions.openLink) {
        lines.append(line(u"Open Link"_s, u"o"_s, actions.openLink));
    }
    lines.append(MenuItem{});
    lines.append(line(isPinned ? u"Unpin"_s : u"Pin"_s, u"p"_s, actions.togglePin));
    lines.append(line(u"Delete"_s, u"D"_s, actions.remove));
    lines.last().role = MenuItemRole::Destructive;
    return lines;
}

RowMenu::RowMenu(const QList<MenuItem>& lines, QWidget* parent)
    : QMenu(parent) {
    for (const MenuItem& line : lines) {
        if (line.title.isEmpty()) {
            addSeparator();
            continue;
        }
        QAction* const action = addAction(line.title, this, line.action);
        if (!line.keyEquivalent.isEmpty()) {
            // What stands behind a tab is shown where shortcuts are; a shortcut of Qt's own would listen for the keys.
            action->setText(u"%1\t%2"_s.arg(line.title, keysText(line.keyEquivalent)));
            action->setData(QVariant::fromValue(QKeySequence(line.keyEquivalent)));
        }
        if (line.role == MenuItemRole::Destructive) {
            ui::setDestructive(*action);
        }
    }
}

void RowMenu::keyPressEvent(QKeyEvent* event) {
    const QVariant pressed = QVariant::fromValue(QKeySequence(event->key()));
    const auto lines = actions();
    const auto chosen = std::ranges::find(lines, pressed, [](const QAction* action) { return action->data(); });
    if (chosen == lines.end() || event->isAutoRepeat()) {
        QMenu::keyPressEvent(event);
        return;
    }
    close();
    (*chosen)->trigger();
}

} // namespace zamber::popover
