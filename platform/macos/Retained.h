// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#import <Foundation/Foundation.h>

/// For Objective-C++ alone: how a plain C++ class keeps an object of the system as a `void*`, so that its header knows
/// nothing of the system.
namespace zamber::macos {

/// Takes a reference that `released` gives back.
inline void* retained(id object) {
    return const_cast<void*>(CFBridgingRetain(object));
}

/// Gives the reference back and hands the object out for the last time.
template <class Object>
Object* released(void* reference) {
    return (__bridge_transfer Object*)reference;
}

/// The object, still referred to.
template <class Object>
Object* borrowed(void* reference) {
    return (__bridge Object*)reference;
}

} // namespace zamber::macos
