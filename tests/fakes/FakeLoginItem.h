// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/LoginItem.h"
#include "tests/fakes/FakeRecord.h"

namespace zamber {

/// A desktop's record of login items with one line.
class FakeLoginItem final : public FakeRecord<LoginItem, LoginItemStatus, LoginItemStatus::NotRegistered> {
public:
    std::expected<void, QString> registerItem() override { return change(LoginItemStatus::Enabled); }
    std::expected<void, QString> unregisterItem() override { return change(LoginItemStatus::NotRegistered); }
};

} // namespace zamber
