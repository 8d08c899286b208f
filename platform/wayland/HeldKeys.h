// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

namespace zamber::wayland {

/// Keys that the user holds and that would change what is typed.
class HeldKeys : public QObject {
    Q_OBJECT

public:
    virtual bool isAnyHeld() const = 0;

Q_SIGNALS:
    /// The answer of `isAnyHeld` may have changed.
    void heldKeysChanged();
};

} // namespace zamber::wayland
