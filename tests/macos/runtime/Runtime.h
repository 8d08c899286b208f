// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>

/// A small Objective-C runtime for what clang makes with -fobjc-runtime=macosx on ELF: classes and categories, message
/// sends, reference counts, autorelease pools, weak references and blocks. An object lies on the heap by itself, so
/// that the address sanitizer sees each use after its end. A receiver below `SMALLEST_OBJECT` is a number: the window
/// handles that Qt's offscreen platform gives out where the Mac's gives views.
namespace zamber::runtime {

using Object = void*;
using Selector = const char*;
using Implementation = void (*)();

constexpr std::uintptr_t SMALLEST_OBJECT = 4096;

struct MethodList;
struct MemberList;

/// What stands behind a class, as the compiler lays it out.
struct ClassData {
    std::uint32_t flags;
    std::uint32_t instanceStart;
    std::uint32_t instanceSize;
    std::uint32_t reserved;
    const void* layout;
    const char* name;
    MethodList* methods;
    const void* protocols;
    const MemberList* members;
};

struct Class {
    Class* isa;
    Class* super;
    void* cache;
    void* vtable;
    ClassData* data;

    bool isMeta() const { return (data->flags & 1U) != 0; }
};

struct Block {
    struct Descriptor {
        std::uint64_t reserved;
        std::uint64_t size;
        void (*copy)(void* destination, const void* source);
        void (*dispose)(const void* block);
    };

    void* isa;
    std::int32_t flags;
    std::int32_t reserved;
    void* invoke;
    Descriptor* descriptor;
};

// Classes.cpp
Selector selectorNamed(const char* name);
Class* classOf(Object object);
Implementation implementation(Class* startingAt, Selector selector); ///< null when there is none
Implementation implementationIn(Class* exactly, Selector selector);  ///< the superclasses left out
bool addImplementation(Class* to, Selector selector, Implementation implementation);
bool isKindOf(Object object, const Class* wanted);

// Objects.cpp
Object allocate(Class* ofClass);
void dispose(Object object);      ///< the end of dealloc
std::size_t objectsWithoutPool(); ///< how many were autoreleased where there was no pool, and so are never let go

/// Has the main thread a pool around all others while the function says so, whose objects go when it is drained.
void setOutermostPool(bool (*isThere)());
void drainOutermostPool();

// Blocks.cpp
bool isBlock(Object object);

/// Has numbers stand for the objects that the function gives for them.
void setObjectOfNumber(Object (*function)(std::uintptr_t number));
Object objectOfNumber(Object receiver);

} // namespace zamber::runtime
