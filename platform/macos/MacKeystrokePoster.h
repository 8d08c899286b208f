// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/KeystrokePoster.h"

namespace zamber::macos {

/// Command-V as hardware would give it. The window server holds the pasteboard and orders the events, so there is
/// nothing to wait for: it is posted at once, to whoever is in front.
class MacKeystrokePoster final : public KeystrokePoster {
public:
    void postPaste(const Paste& paste, Done done) override;
};

} // namespace zamber::macos
