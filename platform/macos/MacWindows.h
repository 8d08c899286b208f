// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QtGui/qwindowdefs.h>

namespace zamber::macos {

/// Brings a window of ours to the front, with the keyboard, in the space where the user is.
void bringWindowToFront(WId window);

/// Puts what Qt keeps on top on the level of floating windows; Qt itself takes the one of modal panels. Comes after the
/// application object.
class FloatingLevel final : public QObject {
public:
    FloatingLevel();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace zamber::macos
