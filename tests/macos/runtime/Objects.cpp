// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "Runtime.h"

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <mutex>
#include <utility>
#include <vector>

extern "C" {
extern char __CFConstantStringClassReference[]; // NOLINT: the compiler names it
zamber::runtime::Implementation zamber_implementation(zamber::runtime::Object* receiver, zamber::runtime::Selector);
zamber::runtime::Object objc_retain(zamber::runtime::Object object);
void objc_release(zamber::runtime::Object object);
void* _Block_copy(const void* block);
void _Block_release(const void* block);
}

namespace zamber::runtime {

namespace {

/// Lies before each object.
struct Header {
    std::uint64_t mark;
    std::atomic<std::int64_t> references;
};

constexpr std::uint64_t LIVING = 0x6c6976696e672121;
constexpr std::int64_t BEING_DESTROYED = std::int64_t{1} << 40;

std::mutex weakMutex; ///< guards the table of weak references

std::multimap<Object, Object*>& weakReferences() {
    static auto* all = new std::multimap<Object, Object*>;
    return *all;
}

/// The objects that each open pool of a thread has to release, the innermost last.
struct Pools {
    std::vector<std::vector<Object>> open;
};

std::mutex poolsMutex;

Pools& pools() {
    thread_local Pools* const own = [] {
        static auto* all = new std::vector<Pools*>; // they outlive their threads' other destructors
        const std::lock_guard lock(poolsMutex);
        return all->emplace_back(new Pools);
    }();
    return *own;
}

bool (*hasOutermostPool)() = nullptr;

std::vector<Object>& outermostPool() {
    static auto* all = new std::vector<Object>;
    return *all;
}

std::atomic<std::size_t> withoutPool;

std::vector<Object>& keptForLackOfAPool() {
    static auto* all = new std::vector<Object>; // so that the leak is ours to count, not the sanitizer's to find
    return *all;
}

/// Null for what is not counted: constants, classes and numbers.
Header* headerOf(Object object) {
    if (reinterpret_cast<std::uintptr_t>(object) < SMALLEST_OBJECT) {
        return nullptr;
    }
    const Class* const ofClass = classOf(object);
    if (reinterpret_cast<const void*>(ofClass) == static_cast<const void*>(__CFConstantStringClassReference) ||
        ofClass->isMeta()) {
        return nullptr;
    }
    Header* const header = static_cast<Header*>(object) - 1;
    if (header->mark != LIVING) {
        std::fprintf(stderr, "%p is no living object\n", object);
        std::abort();
    }
    return header;
}

template <class... Arguments>
Object send(Object receiver, const char* selector, Arguments... arguments) {
    const Selector name = selectorNamed(selector);
    const auto method =
        reinterpret_cast<Object (*)(Object, Selector, Arguments...)>(zamber_implementation(&receiver, name));
    return method(receiver, name, arguments...);
}

} // namespace

Object allocate(Class* ofClass) {
    const std::size_t size = sizeof(Header) + (ofClass->data->instanceSize < 8 ? 8 : ofClass->data->instanceSize);
    auto* const header = static_cast<Header*>(std::calloc(1, size));
    header->mark = LIVING;
    header->references = 1;
    Object const object = header + 1;
    *static_cast<Class**>(object) = ofClass;
    // The members that are C++ objects, those of the superclasses first.
    std::vector<Class*> classes;
    for (Class* each = ofClass; each != nullptr; each = each->super) {
        classes.push_back(each);
    }
    const Selector constructor = selectorNamed(".cxx_construct");
    for (auto each = classes.rbegin(); each != classes.rend(); ++each) {
        if (const Implementation found = implementationIn(*each, constructor)) {
            reinterpret_cast<Object (*)(Object, Selector)>(found)(object, constructor);
        }
    }
    return object;
}

void dispose(Object object) {
    {
        const std::lock_guard lock(weakMutex);
        const auto [first, last] = weakReferences().equal_range(object);
        for (auto each = first; each != last; ++each) {
            *each->second = nullptr;
        }
        weakReferences().erase(first, last);
    }
    const Selector destructor = selectorNamed(".cxx_destruct");
    for (Class* each = classOf(object); each != nullptr; each = each->super) {
        if (const Implementation found = implementationIn(each, destructor)) {
            reinterpret_cast<void (*)(Object, Selector)>(found)(object, destructor);
        }
    }
    Header* const header = static_cast<Header*>(object) - 1;
    header->mark = 0;
    std::free(header);
}

std::size_t objectsWithoutPool() {
    return withoutPool;
}

void setOutermostPool(bool (*isThere)()) {
    hasOutermostPool = isThere;
}

void drainOutermostPool() {
    for (Object const object : std::exchange(outermostPool(), {})) {
        objc_release(object);
    }
}

} // namespace zamber::runtime

using namespace zamber::runtime;

extern "C" {

Object objc_retain(Object object) {
    if (object == nullptr || reinterpret_cast<std::uintptr_t>(object) < SMALLEST_OBJECT) {
        return object;
    }
    if (isBlock(object)) {
        return _Block_copy(object);
    }
    if (Header* const header = headerOf(object)) {
        ++header->references;
    }
    return object;
}

void objc_release(Object object) {
    if (object == nullptr || reinterpret_cast<std::uintptr_t>(object) < SMALLEST_OBJECT) {
        return;
    }
    if (isBlock(object)) {
        return _Block_release(object);
    }
    Header* const header = headerOf(object);
    if (header != nullptr && --header->references == 0) {
        header->references = BEING_DESTROYED; // it may be retained and released once more meanwhile
        send(object, "dealloc");
    }
}

Object objc_autorelease(Object object) {
    if (object == nullptr) {
        return object;
    }
    auto& open = pools().open;
    if (!open.empty()) {
        open.back().push_back(object);
    } else if (hasOutermostPool != nullptr && hasOutermostPool()) {
        outermostPool().push_back(object);
    } else {
        ++withoutPool;
        const std::lock_guard lock(weakMutex);
        keptForLackOfAPool().push_back(object);
    }
    return object;
}

void* objc_autoreleasePoolPush() {
    pools().open.emplace_back();
    return reinterpret_cast<void*>(pools().open.size());
}

/// With the pool those that were opened in it and left.
void objc_autoreleasePoolPop(void* pool) {
    auto& open = pools().open;
    const auto number = reinterpret_cast<std::size_t>(pool);
    if (number == 0 || number > open.size()) {
        std::fprintf(stderr, "a pool is closed that is not open\n");
        std::abort();
    }
    while (open.size() >= number) {
        while (!open.back().empty()) {
            Object const object = open.back().back();
            open.back().pop_back();
            objc_release(object);
        }
        open.pop_back();
    }
}

Object objc_retainBlock(Object block) {
    return _Block_copy(block);
}
Object objc_autoreleaseReturnValue(Object object) {
    return objc_autorelease(object);
}
Object objc_retainAutorelease(Object object) {
    return objc_autorelease(objc_retain(object));
}
Object objc_retainAutoreleaseReturnValue(Object object) {
    return objc_autorelease(objc_retain(object));
}
Object objc_retainAutoreleasedReturnValue(Object object) {
    return objc_retain(object);
}
Object objc_claimAutoreleasedReturnValue(Object object) {
    return objc_retain(object);
}
Object objc_unsafeClaimAutoreleasedReturnValue(Object object) {
    return object;
}

void objc_storeStrong(Object* location, Object object) {
    Object const old = *location;
    if (old != object) {
        objc_retain(object);
        *location = object;
        objc_release(old);
    }
}

Object objc_storeWeak(Object* location, Object object) {
    const std::lock_guard lock(weakMutex);
    auto& all = weakReferences();
    std::erase_if(all, [location](const auto& entry) { return entry.second == location; });
    if (object != nullptr && headerOf(object) != nullptr) {
        all.emplace(object, location);
    }
    return *location = object;
}
Object objc_initWeak(Object* location, Object object) {
    *location = nullptr;
    return objc_storeWeak(location, object);
}
void objc_destroyWeak(Object* location) {
    objc_storeWeak(location, nullptr);
}
Object objc_loadWeakRetained(Object* location) {
    const std::lock_guard lock(weakMutex);
    if (*location == nullptr) {
        return nullptr;
    }
    const Header* const header = headerOf(*location);
    return header != nullptr && header->references >= BEING_DESTROYED ? nullptr : objc_retain(*location);
}
Object objc_loadWeak(Object* location) {
    return objc_autorelease(objc_loadWeakRetained(location));
}
void objc_copyWeak(Object* destination, Object* source) {
    Object const object = objc_loadWeakRetained(source);
    objc_initWeak(destination, object);
    objc_release(object);
}
void objc_moveWeak(Object* destination, Object* source) {
    objc_copyWeak(destination, source);
    objc_destroyWeak(source);
}

Object objc_getProperty(Object object, Selector, std::ptrdiff_t offset, bool) {
    return objc_retainAutorelease(*reinterpret_cast<Object*>(static_cast<char*>(object) + offset));
}
void objc_setProperty_nonatomic(Object object, Selector, Object value, std::ptrdiff_t offset) {
    objc_storeStrong(reinterpret_cast<Object*>(static_cast<char*>(object) + offset), value);
}
void objc_setProperty_atomic(Object object, Selector selector, Object value, std::ptrdiff_t offset) {
    objc_setProperty_nonatomic(object, selector, value, offset);
}
// Whatever is copied here cannot change; a block is copied by its being retained.
void objc_setProperty_nonatomic_copy(Object object, Selector selector, Object value, std::ptrdiff_t offset) {
    objc_setProperty_nonatomic(object, selector, value, offset);
}
void objc_setProperty_atomic_copy(Object object, Selector selector, Object value, std::ptrdiff_t offset) {
    objc_setProperty_nonatomic(object, selector, value, offset);
}

void objc_copyStruct(void* destination, const void* source, std::ptrdiff_t size, bool, bool) {
    std::memcpy(destination, source, static_cast<std::size_t>(size));
}

Object objc_alloc(Class* ofClass) {
    return allocate(ofClass);
}
Object objc_alloc_init(Class* ofClass) {
    return send(allocate(ofClass), "init");
}
Object objc_opt_new(Class* ofClass) {
    return objc_alloc_init(ofClass);
}
void objc_enumerationMutation(Object) {
    std::fprintf(stderr, "a collection was changed while it was enumerated\n");
    std::abort();
}
}
