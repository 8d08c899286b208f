// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QtGui/qwindowdefs.h>

namespace zamber::macos {

/// Brings a window of ours to the front and gives it the keyboard focus, in the user's current space.
void bringWindowToFront(WId window);

/// Moves windows that Qt keeps on top from the level of modal panels, which Qt chooses, to the level of floating
/// windows. To be called after the application object was made.
class FloatingLevel final : public QObject {
public:
    FloatingLevel();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace zamber::macos
