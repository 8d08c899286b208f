// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/SystemSound.h"

#include <memory>

namespace zamber::freedesktop {

/// Sounds by libcanberra, from samples of our own that are in the binary. A sound server that hangs keeps a thread
/// waiting, never the program; sounds that are asked for meanwhile are not played.
class CanberraSound final : public SystemSound {
public:
    CanberraSound();
    ~CanberraSound() override;

    void play(const QString& name) override;

private:
    class Player;

    std::shared_ptr<Player> m_player;
};

} // namespace zamber::freedesktop
