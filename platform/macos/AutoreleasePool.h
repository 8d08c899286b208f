// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

namespace zamber::macos {

/// An autorelease pool, for the time before the event loop runs and has pools of its own: without one, objects that the
/// system autoreleases would never be released. Pools are closed in the opposite order, on the thread that opened them.
void* openAutoreleasePool();
void closeAutoreleasePool(void* pool);

} // namespace zamber::macos
