// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/x11/X11AccessibilityTrust.h"

#include <xcb/xtest.h>

namespace zamber::x11 {

bool X11AccessibilityTrust::isTrusted() const {
    const auto* const xtest = xcb_get_extension_data(m_connection.raw(), &xcb_test_id);
    return xtest != nullptr && xtest->present != 0;
}

} // namespace zamber::x11
