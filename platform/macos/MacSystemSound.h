// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/SystemSound.h"

namespace zamber::macos {

/// Plays the system's sounds by their names.
class MacSystemSound final : public SystemSound {
public:
    void play(const QString& name) override;
};

} // namespace zamber::macos
