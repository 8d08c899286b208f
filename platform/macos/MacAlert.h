// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Alert.h"

namespace zamber::macos {

/// The system's modal alert.
class MacAlert final : public Alert {
public:
    int run(const AlertContent& content) override;
};

} // namespace zamber::macos
