// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/freedesktop/selection/PasteKeystroke.h"

#include <QObject>

namespace zamber::wayland {

/// Types the paste keystroke into the window that has the focus, by whatever the compositor lets this program do.
class PasteKeyboard : public QObject {
    Q_OBJECT

public:
    using PasteKeystroke = freedesktop::selection::PasteKeystroke;

    /// False while the user holds keys that would change the keystroke.
    virtual bool isReady() const { return true; }

    /// True while nothing can be typed, since the compositor takes keys that the user holds for the keystroke's own.
    virtual bool isBlocked() const { return false; }

    /// The keystroke to type where that one is wanted: another one where the user's layout has no key for it.
    virtual PasteKeystroke possibleFor(PasteKeystroke wanted) const { return wanted; }

    /// Presses the keys of the keystroke and releases them. False, and nothing is typed, where keys that the user holds
    /// would change it.
    virtual bool type(PasteKeystroke keystroke) = 0;

Q_SIGNALS:
    /// The answer of `isReady` may have changed.
    void readyChanged();
};

} // namespace zamber::wayland
