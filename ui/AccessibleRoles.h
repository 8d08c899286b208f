// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

namespace zamber::ui {

/// Gives controls of this folder their roles for assistive technology, where Qt takes them for empty boxes. May be
/// called any number of times.
void installAccessibleRoles();

} // namespace zamber::ui
