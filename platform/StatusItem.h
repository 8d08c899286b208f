// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Anchor.h"

#include <QList>
#include <QString>

#include <functional>
#include <optional>

namespace zamber {

enum class MouseButton { Left, Right };

/// Whether a line of a menu does what cannot be undone, which it may look like.
enum class MenuItemRole { Ordinary, Destructive };

/// One line of a menu. An empty title makes a separator.
struct MenuItem {
    QString title;
    QString keyEquivalent; ///< the key that chooses the item, with ⌘, and ⇧ for a capital, in the open menu; or empty
    std::function<void()> action;
    QString selector = {}; ///< what the action is called where actions are sent by name
    MenuItemRole role = MenuItemRole::Ordinary;
};

/// The program's square in the menu bar or tray.
class StatusItem {
public:
    using ClickedHandler = std::function<void(MouseButton)>;

    virtual ~StatusItem() = default;

    /// Creates the item, showing a symbol by name. Where there is no tray yet, it appears when one comes.
    virtual void showSymbol(const QString& symbol, const QString& accessibilityDescription) = 0;

    /// Where the item lies, or the best place to hang a popover from when the desktop does not tell; nothing only
    /// where the desktop has no place for a status item at all.
    virtual std::optional<Anchor> button() const = 0;

    /// Told at each release of a mouse button over the item.
    virtual void setClickedHandler(ClickedHandler handler) = 0;

    /// Shows a menu under the item, once: the next click is told again.
    virtual void showMenuOnce(const QList<MenuItem>& menu) = 0;
};

} // namespace zamber
