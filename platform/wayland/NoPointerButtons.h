// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/freedesktop/tray/PointerButtons.h"

namespace zamber::wayland {

/// Wayland tells a program of the presses in its own windows alone, which Qt reports.
class NoPointerButtons final : public freedesktop::tray::PointerButtons {
public:
    void setListening(Listening /*listening*/) override {}
    void catchUp() override {}
};

} // namespace zamber::wayland
