// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#import <Foundation/Foundation.h>

#include <functional>

namespace zamber::system {

/// Turns the main run loop in that mode, and Qt's with it, until the condition holds.
void runUntil(NSRunLoopMode mode, const std::function<bool()>& condition);

/// Whatever else a turn brings: events that were posted, what Qt's views have to be told.
void addToEachTurn(void (*step)());

/// The events that came since it was set to 0.
extern int eventsSeen;

} // namespace zamber::system
