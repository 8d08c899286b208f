// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "Runtime.h"

#include <sys/mman.h>

#include <array>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <set>

// The layout of blocks is clang's "Block Implementation Specification".

extern "C" {
// NOLINTBEGIN: the compiler names them
void* _NSConcreteStackBlock[32];
void* _NSConcreteGlobalBlock[32];
void* _NSConcreteMallocBlock[32];
zamber::runtime::Object objc_retain(zamber::runtime::Object object);
void objc_release(zamber::runtime::Object object);
void* _Block_copy(const void* block);
void _Block_release(const void* block);
// NOLINTEND
}

namespace zamber::runtime {

namespace {

constexpr std::int32_t COUNT_MASK = 0xffff;
constexpr std::int32_t ONE_REFERENCE = 2;
constexpr std::int32_t ON_HEAP = 1 << 24;
constexpr std::int32_t HAS_COPY_AND_DISPOSE = 1 << 25;
constexpr std::int32_t IS_GLOBAL = 1 << 28;

constexpr int KIND_MASK = 0xf;
constexpr int KIND_OBJECT = 3;
constexpr int KIND_BLOCK = 7;
constexpr int KIND_SHARED_VARIABLE = 8;

/// A __block variable, which moves to the heap with the first block that does.
struct SharedVariable {
    void* isa;
    SharedVariable* forwarding;
    std::int32_t flags;
    std::uint32_t size;
    // with HAS_COPY_AND_DISPOSE alone:
    void (*keep)(void* destination, void* source);
    void (*destroy)(void* variable);
};

SharedVariable* shared(SharedVariable* variable);
void unshare(SharedVariable* variable);

std::int32_t addTo(std::int32_t& flags, std::int32_t change) {
    return std::atomic_ref(flags).fetch_add(change) + change;
}

/// Code that calls a block in the place of a method: the receiver comes before the block's own arguments, where a
/// method has its selector second. x86-64: mov rsi, rdi; movabs rdi, block; jmp [rdi + 16].
constexpr std::array<unsigned char, 16> TRAMPOLINE{0x48, 0x89, 0xFE, 0x48, 0xBF, 0,    0,    0,
                                                   0,    0,    0,    0,    0,    0xFF, 0x67, 0x10};
constexpr std::size_t BLOCK_IN_TRAMPOLINE = 5;
constexpr std::size_t PAGE = 4096;
constexpr std::size_t TRAMPOLINE_IN_PAGE = 64; ///< the sanitizers look at what lies before a function

/// Those that code calls, where the leak sanitizer sees them.
std::multiset<Object>& calledBlocks() {
    static auto* all = new std::multiset<Object>;
    return *all;
}

} // namespace

namespace {

SharedVariable* shared(SharedVariable* variable) {
    SharedVariable* const current = variable->forwarding;
    if ((current->flags & ON_HEAP) != 0) {
        addTo(current->flags, ONE_REFERENCE);
        return current;
    }
    auto* const copy = static_cast<SharedVariable*>(std::malloc(variable->size));
    std::memcpy(copy, variable, variable->size);
    copy->flags = (copy->flags & ~COUNT_MASK) | ON_HEAP | 2 * ONE_REFERENCE; // the block's and its own scope's
    copy->forwarding = copy;
    variable->forwarding = copy;
    if ((variable->flags & HAS_COPY_AND_DISPOSE) != 0) {
        variable->keep(copy, variable);
    }
    return copy;
}

void unshare(SharedVariable* variable) {
    SharedVariable* const current = variable->forwarding;
    if ((current->flags & ON_HEAP) == 0 || (addTo(current->flags, -ONE_REFERENCE) & COUNT_MASK) != 0) {
        return;
    }
    if ((current->flags & HAS_COPY_AND_DISPOSE) != 0) {
        current->destroy(current);
    }
    std::free(current);
}

} // namespace

bool isBlock(Object object) {
    const void* const isa = *static_cast<void**>(object);
    return isa == _NSConcreteStackBlock || isa == _NSConcreteGlobalBlock || isa == _NSConcreteMallocBlock;
}

} // namespace zamber::runtime

using namespace zamber::runtime;

extern "C" {

void* _Block_copy(const void* block) {
    auto* const source = static_cast<Block*>(const_cast<void*>(block));
    if (source == nullptr || (source->flags & IS_GLOBAL) != 0) {
        return source;
    }
    if ((source->flags & ON_HEAP) != 0) {
        addTo(source->flags, ONE_REFERENCE);
        return source;
    }
    auto* const copy = static_cast<Block*>(std::malloc(source->descriptor->size));
    std::memcpy(copy, source, source->descriptor->size);
    copy->flags = (copy->flags & ~COUNT_MASK) | ON_HEAP | ONE_REFERENCE;
    copy->isa = _NSConcreteMallocBlock;
    if ((copy->flags & HAS_COPY_AND_DISPOSE) != 0) {
        copy->descriptor->copy(copy, source);
    }
    return copy;
}

void _Block_release(const void* block) {
    auto* const released = static_cast<Block*>(const_cast<void*>(block));
    if (released == nullptr || (released->flags & IS_GLOBAL) != 0 || (released->flags & ON_HEAP) == 0) {
        return;
    }
    if ((addTo(released->flags, -ONE_REFERENCE) & COUNT_MASK) != 0) {
        return;
    }
    if ((released->flags & HAS_COPY_AND_DISPOSE) != 0) {
        released->descriptor->dispose(released);
    }
    std::free(released);
}

void _Block_object_assign(void* destination, const void* object, int kind) {
    switch (kind & KIND_MASK) {
    case KIND_SHARED_VARIABLE:
        *static_cast<SharedVariable**>(destination) = shared(static_cast<SharedVariable*>(const_cast<void*>(object)));
        return;
    case KIND_OBJECT:
        *static_cast<Object*>(destination) = objc_retain(const_cast<void*>(object));
        return;
    case KIND_BLOCK:
        *static_cast<Object*>(destination) = _Block_copy(object);
        return;
    default:
        std::fprintf(stderr, "a block captures what this runtime does not know: %d\n", kind);
        std::abort();
    }
}

void _Block_object_dispose(const void* object, int kind) {
    if ((kind & KIND_MASK) == KIND_OBJECT) {
        objc_release(const_cast<void*>(object));
    } else if ((kind & KIND_MASK) == KIND_BLOCK) {
        _Block_release(object);
    } else if ((kind & KIND_MASK) == KIND_SHARED_VARIABLE) {
        unshare(static_cast<SharedVariable*>(const_cast<void*>(object)));
    }
}

void* imp_implementationWithBlock(Object block) {
    Object const kept = _Block_copy(block);
    calledBlocks().insert(kept);
    auto* const page = static_cast<unsigned char*>(
        mmap(nullptr, PAGE, PROT_READ | PROT_WRITE | PROT_EXEC, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
    if (page == MAP_FAILED) {
        std::perror("mmap");
        std::abort();
    }
    unsigned char* const code = page + TRAMPOLINE_IN_PAGE;
    std::memcpy(code, TRAMPOLINE.data(), TRAMPOLINE.size());
    std::memcpy(code + BLOCK_IN_TRAMPOLINE, &kept, sizeof kept);
    return code;
}

bool imp_removeBlock(void* implementation) {
    Object block = nullptr;
    std::memcpy(&block, static_cast<unsigned char*>(implementation) + BLOCK_IN_TRAMPOLINE, sizeof block);
    calledBlocks().erase(calledBlocks().find(block));
    _Block_release(block);
    return munmap(static_cast<unsigned char*>(implementation) - TRAMPOLINE_IN_PAGE, PAGE) == 0;
}
}
