// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Alert.h"

namespace zamber::freedesktop {

/// A dialog of our own, in front of everything.
class QtAlert final : public Alert {
public:
    int run(const AlertContent& content) override;
};

} // namespace zamber::freedesktop
