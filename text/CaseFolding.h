// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

namespace zamber::text {

/// How a search compares letters: Turkish and Azerbaijani pair I with ı and İ with i, everybody else I with i.
enum class CaseFolding { Common, Turkic };

} // namespace zamber::text
