// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <Foundation/Foundation.h>

extern "C" {
IMP imp_implementationWithBlock(id block);
BOOL imp_removeBlock(IMP implementation);
BOOL class_addMethod(Class to, SEL selector, IMP implementation, const char* types);
}
