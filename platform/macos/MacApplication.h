// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Application.h"

namespace zamber::macos {

/// The shared application. Its delegate (MacApplicationDelegate.h) was installed before.
class MacApplication final : public Application {
public:
    void setAccessoryPolicy() override;
    void activate() override;
    void terminate() override;
    bool sendAction(const QString& name) override;
    void postNotification(const QString& name) override;
    void setShowRequestedHandler(std::function<void()> handler) override;
};

} // namespace zamber::macos
