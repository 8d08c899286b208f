// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#import <Foundation/Foundation.h>

/// For Objective-C++ alone: keeps an Objective-C object in a `void*` member of a plain C++ class, so that the header of
/// the class includes no header of the system.
namespace zamber::macos {

/// Retains the object, until `released`.
inline void* retained(id object) {
    return const_cast<void*>(CFBridgingRetain(object));
}

/// Releases the object and returns it for the last time.
template <class Object>
Object* released(void* reference) {
    return (__bridge_transfer Object*)reference;
}

/// The object, which stays retained.
template <class Object>
Object* borrowed(void* reference) {
    return (__bridge Object*)reference;
}

} // namespace zamber::macos
