// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

namespace zamber::macos {

/// Opens a pool for what the system gives away, where there is no loop yet that has one; without a pool it would never
/// be let go. Pools are closed in the opposite order, on the thread that opened them.
void* openAutoreleasePool();
void closeAutoreleasePool(void* pool);

} // namespace zamber::macos
