// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "install/LaunchAtLoginManager.h"

#include "platform/Log.h"
#include "platform/LoginItem.h"

namespace zamber::install {

bool LaunchAtLoginManager::isEnabled() const {
    return m_loginItem.status() == LoginItemStatus::Enabled;
}

void LaunchAtLoginManager::setEnabled(bool isEnabled) {
    const auto outcome = isEnabled ? m_loginItem.registerItem() : m_loginItem.unregisterItem();
    if (!outcome) {
        logLine("❌ Launch at Login error: " + outcome.error().toStdString());
    } else {
        logLine(isEnabled ? "✅ Launch at Login: enabled" : "✅ Launch at Login: disabled");
    }
}

} // namespace zamber::install
