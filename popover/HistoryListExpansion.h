// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "popover/HistoryListWidget.h"
#include "popover/TextLines.h"

namespace zamber::popover {

struct HistoryListWidget::Expansion {
    LazyTextLayout layout;
    double scrollOffset = 0;
};

} // namespace zamber::popover
