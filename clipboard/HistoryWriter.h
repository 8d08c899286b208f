// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "clipboard/ClipboardItem.h"

#include <QList>

#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>

namespace zamber::clipboard {

/// How many bytes the text of the file takes, or nothing when an entry has no time (not a number, infinite), which
/// JSON cannot say.
std::optional<std::int64_t> historyJsonSize(const QList<ClipboardItem>& items);

/// Hands out the text of the file in blocks of some megabytes, as soon as each is full. The taker answers whether it
/// wants to go on; the result is its last answer.
bool writeHistoryJson(const QList<ClipboardItem>& items, const std::function<bool(std::string_view block)>& take);

} // namespace zamber::clipboard
