// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

namespace zamber::ui {

/// Tells assistive technology what the controls of this folder are that Qt takes for empty boxes. May be called any
/// number of times.
void installAccessibleRoles();

} // namespace zamber::ui
