// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "Runtime.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <mutex>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>

namespace zamber::runtime {

namespace {

struct Method {
    const char* name;
    const char* types;
    Implementation implementation;
};

struct Member {
    std::int64_t* offset; ///< where the code that uses it looks it up
    const char* name;
    const char* types;
    std::uint32_t alignment; ///< as a power of two
    std::uint32_t size;
};

struct Category {
    const char* name;
    Class* extended;
    MethodList* instanceMethods;
    MethodList* classMethods;
};

Object (*objectOf)(std::uintptr_t) = nullptr;
std::mutex selectorsMutex;
std::mutex tablesMutex;

using Table = std::unordered_map<Selector, Implementation>;

// Never destroyed: objects may go after them.
std::map<std::string, Selector>& selectors() {
    static auto* all = new std::map<std::string, Selector>;
    return *all;
}

std::unordered_map<const Class*, Table>& tables() {
    static auto* all = new std::unordered_map<const Class*, Table>;
    return *all;
}

} // namespace

struct MethodList {
    std::uint32_t entrySize;
    std::uint32_t count;

    void addTo(Class* owner) const {
        const char* entry = reinterpret_cast<const char*>(this + 1);
        for (std::uint32_t i = 0; i < count; ++i, entry += entrySize & ~3U) {
            const auto* method = reinterpret_cast<const Method*>(entry);
            tables()[owner][selectorNamed(method->name)] = method->implementation;
        }
    }
};

struct MemberList {
    std::uint32_t entrySize;
    std::uint32_t count;

    std::vector<const Member*> all() const {
        std::vector<const Member*> found;
        const char* entry = reinterpret_cast<const char*>(this + 1);
        for (std::uint32_t i = 0; i < count; ++i, entry += entrySize) {
            found.push_back(reinterpret_cast<const Member*>(entry));
        }
        return found;
    }
};

// Where the linker has put together what the compiler tells of classes, categories and selectors.
extern "C" {
extern Selector __start_objc_selrefs[] __attribute__((weak));
extern Selector __stop_objc_selrefs[] __attribute__((weak));
extern Class* __start_objc_classlist[] __attribute__((weak));
extern Class* __stop_objc_classlist[] __attribute__((weak));
extern Category* __start_objc_catlist[] __attribute__((weak));
extern Category* __stop_objc_catlist[] __attribute__((weak));
}

namespace {

void add(Class* owner, const MethodList* methods) {
    if (methods != nullptr) {
        methods->addTo(owner);
    }
}

/// Members lie behind those of the superclass, of which the compiler knows only what a header tells: the rest are moved
/// out of the way of what its implementation adds.
void placeMembers(Class* of, std::set<const Class*>& placed) {
    if (of->super == nullptr || !placed.insert(of).second) {
        return;
    }
    placeMembers(of->super, placed);
    ClassData& data = *of->data;
    const std::uint32_t taken = of->super->data->instanceSize;
    if (data.instanceStart >= taken) {
        return;
    }
    const auto members = data.members != nullptr ? data.members->all() : std::vector<const Member*>();
    std::uint32_t alignment = sizeof(void*);
    for (const Member* member : members) {
        alignment = std::max(alignment, 1U << member->alignment);
    }
    const std::uint32_t distance = (taken - data.instanceStart + alignment - 1) / alignment * alignment;
    for (const Member* member : members) {
        *member->offset += distance;
    }
    data.instanceStart += distance;
    data.instanceSize += distance;
}

__attribute__((constructor(101))) void load() {
    std::set<const Class*> placed;
    for (Class** each = __start_objc_classlist; each != __stop_objc_classlist; ++each) {
        placeMembers(*each, placed);
        add(*each, (*each)->data->methods);
        add((*each)->isa, (*each)->isa->data->methods);
    }
    for (Category** each = __start_objc_catlist; each != __stop_objc_catlist; ++each) {
        add((*each)->extended, (*each)->instanceMethods);
        add((*each)->extended->isa, (*each)->classMethods);
    }
    for (Selector* each = __start_objc_selrefs; each != __stop_objc_selrefs; ++each) {
        *each = selectorNamed(*each);
    }
}

[[noreturn]] void fail(const char* what, const char* name, Selector selector) {
    std::fprintf(stderr, "%s: %s %s\n", what, name, selector);
    std::abort();
}

} // namespace

Selector selectorNamed(const char* name) {
    const std::lock_guard lock(selectorsMutex);
    const auto [at, isNew] = selectors().try_emplace(name, nullptr);
    if (isNew) {
        at->second = at->first.c_str();
    }
    return at->second;
}

Class* classOf(Object object) {
    return *static_cast<Class**>(object);
}

Implementation implementationIn(Class* exactly, Selector selector) {
    const std::lock_guard lock(tablesMutex);
    const auto table = tables().find(exactly);
    if (table == tables().end()) {
        return nullptr;
    }
    const auto found = table->second.find(selector);
    return found != table->second.end() ? found->second : nullptr;
}

Implementation implementation(Class* startingAt, Selector selector) {
    for (Class* each = startingAt; each != nullptr; each = each->super) {
        if (const Implementation found = implementationIn(each, selector)) {
            return found;
        }
    }
    return nullptr;
}

bool addImplementation(Class* to, Selector selector, Implementation implementation) {
    const std::lock_guard lock(tablesMutex);
    return tables()[to].try_emplace(selector, implementation).second;
}

bool isKindOf(Object object, const Class* wanted) {
    for (const Class* each = classOf(object); each != nullptr; each = each->super) {
        if (each == wanted) {
            return true;
        }
    }
    return false;
}

void setObjectOfNumber(Object (*function)(std::uintptr_t)) {
    objectOf = function;
}

Object objectOfNumber(Object receiver) {
    const auto number = reinterpret_cast<std::uintptr_t>(receiver);
    return number != 0 && number < SMALLEST_OBJECT && objectOf != nullptr ? objectOf(number) : receiver;
}

} // namespace zamber::runtime

using namespace zamber::runtime;

extern "C" {
void* _objc_empty_cache;  // NOLINT: the compiler names it
void* _objc_empty_vtable; // NOLINT

/// For MessageSend.cpp. The receiver is where the arguments were put; a number becomes the object it stands for.
Implementation zamber_implementation(Object* receiver, Selector selector) {
    *receiver = objectOfNumber(*receiver);
    if (isBlock(*receiver)) {
        fail("a block was sent a message", "", selector);
    }
    const Class* const receiverClass = classOf(*receiver);
    const Implementation found = implementation(classOf(*receiver), selector);
    if (found == nullptr) {
        fail(receiverClass->isMeta() ? "unrecognized class message" : "unrecognized message", receiverClass->data->name,
             selector);
    }
    return found;
}

struct SuperReceiver {
    Object receiver;
    Class* definingClass;
};

Implementation zamber_super_implementation(const SuperReceiver* receiver, Selector selector) {
    const Implementation found = implementation(receiver->definingClass->super, selector);
    if (found == nullptr) {
        fail("unrecognized message to super", receiver->definingClass->data->name, selector);
    }
    return found;
}

Selector sel_registerName(const char* name) {
    return selectorNamed(name);
}

bool class_addMethod(Class* to, Selector selector, Implementation implementation, const char*) {
    return addImplementation(to, selectorNamed(selector), implementation);
}

const char* class_getName(const Class* named) {
    return named->data->name;
}

Object objc_opt_class(Object object) {
    object = objectOfNumber(object);
    return object == nullptr || classOf(object)->isMeta() ? object : static_cast<Object>(classOf(object));
}

bool objc_opt_isKindOfClass(Object object, const Class* wanted) {
    object = objectOfNumber(object);
    return object != nullptr && isKindOf(object, wanted);
}

bool objc_opt_respondsToSelector(Object object, Selector selector) {
    object = objectOfNumber(object);
    return object != nullptr && implementation(classOf(object), selectorNamed(selector)) != nullptr;
}

Object objc_opt_self(Object object) {
    return object;
}
}
