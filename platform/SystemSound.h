// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace zamber {

/// The short sounds that come with the desktop, or with the program where the desktop has none by that name.
class SystemSound {
public:
    virtual ~SystemSound() = default;

    /// Plays the sound once and returns at once. An unknown name or a missing sound server is silence, and no delay.
    virtual void play(const QString& name) = 0;
};

} // namespace zamber
