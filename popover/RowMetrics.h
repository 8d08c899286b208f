// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

/// Distances inside rows and headers, in points, for measuring and for painting them.
namespace zamber::popover::rowmetrics {

inline constexpr int PADDING_HORIZONTAL = 12;
inline constexpr int PADDING_VERTICAL = 10;
inline constexpr int SPACING = 10;
inline constexpr int ICON_WIDTH = 16;
inline constexpr int AGE_WIDTH = 28;
inline constexpr int PIN_WIDTH = 11;
inline constexpr int ACTION_SIZE = 22;
inline constexpr int ACTION_SPACING = 2;
inline constexpr int COUNTS_SPACING = 3;
inline constexpr int COUNT_SPACING = 4;
inline constexpr int LINK_SPACING = 2;
inline constexpr int HEADER_PADDING_TOP = 8;
inline constexpr int HEADER_PADDING_BOTTOM = 2;

} // namespace zamber::popover::rowmetrics
