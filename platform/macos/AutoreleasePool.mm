// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/macos/AutoreleasePool.h"

// The functions that the compiler calls for @autoreleasepool; clang's page about automatic reference counting declares
// them.
extern "C" void* objc_autoreleasePoolPush();
extern "C" void objc_autoreleasePoolPop(void* pool);

namespace zamber::macos {

void* openAutoreleasePool() {
    return objc_autoreleasePoolPush();
}

void closeAutoreleasePool(void* pool) {
    objc_autoreleasePoolPop(pool);
}

} // namespace zamber::macos
