// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "popover/PopoverCommands.h"

#include <QKeyEvent>
#include <QKeySequence>

#include <algorithm>
#include <array>

namespace zamber::popover {

using namespace Qt::StringLiterals;

namespace {

struct Binding {
    QKeyCombination keys;
    PopoverCommand command = PopoverCommand::ShowMenu;
};

/// The first one of a command is the one that is shown. None is a key that edits a text.
constexpr std::array BINDINGS{
    Binding{Qt::SHIFT | Qt::Key_F10, PopoverCommand::ShowMenu},
    Binding{Qt::CTRL | Qt::Key_P, PopoverCommand::Pin},
    Binding{Qt::CTRL | Qt::SHIFT | Qt::Key_D, PopoverCommand::Delete}, // with Control alone it is an editing key
    Binding{Qt::CTRL | Qt::Key_O, PopoverCommand::OpenLink},
    Binding{Qt::CTRL | Qt::SHIFT | Qt::Key_Delete, PopoverCommand::Clear},
    Binding{Qt::CTRL | Qt::SHIFT | Qt::Key_Backspace, PopoverCommand::Clear}, // small keyboards have no Delete
    Binding{Qt::CTRL | Qt::Key_R, PopoverCommand::Update},
    Binding{Qt::CTRL | Qt::SHIFT | Qt::Key_R, PopoverCommand::SkipUpdate},
    Binding{Qt::CTRL | Qt::Key_Comma, PopoverCommand::OpenSettings},
};

} // namespace

std::optional<PopoverCommand> commandOf(const QKeyEvent& press) {
    Qt::KeyboardModifiers modifiers = press.modifiers() & ~Qt::KeypadModifier;
    if (modifiers.testFlag(Qt::MetaModifier) && !modifiers.testFlag(Qt::ControlModifier)) {
        modifiers ^= Qt::MetaModifier | Qt::ControlModifier;
    }
    const QKeyCombination keys(modifiers, static_cast<Qt::Key>(press.key()));
    const auto* const found = std::ranges::find(BINDINGS, keys, &Binding::keys);
    return found == BINDINGS.end() ? std::nullopt : std::optional(found->command);
}

QString keysText(PopoverCommand command) {
    const auto* const found = std::ranges::find(BINDINGS, command, &Binding::command);
    return QKeySequence(found->keys).toString(QKeySequence::NativeText);
}

QString withKeys(const QString& text, PopoverCommand command) {
    return u"%1 (%2)"_s.arg(text, keysText(command));
}

} // namespace zamber::popover
