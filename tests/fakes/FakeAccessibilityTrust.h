// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/AccessibilityTrust.h"

namespace zamber {

class FakeAccessibilityTrust final : public AccessibilityTrust {
public:
    bool isTrusted() const override { return isGranted; }

    bool isGranted = true;
};

} // namespace zamber
