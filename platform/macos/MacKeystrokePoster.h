// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/KeystrokePoster.h"

namespace zamber::macos {

/// Posts Command-V as events of the hardware. A written pasteboard is readable at once and the window server delivers
/// events in order, so that nothing has to be waited for. The application in front gets the keystroke.
class MacKeystrokePoster final : public KeystrokePoster {
public:
    void postPaste(const Paste& paste, Done done) override;
};

} // namespace zamber::macos
