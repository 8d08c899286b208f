// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "tests/macos/System.h"

#import <ApplicationServices/ApplicationServices.h>
#import <Carbon/Carbon.h>

#include <algorithm>
#include <cstring>
#include <map>
#include <set>
#include <vector>

// The rules (CarbonEvents.h, CarbonEventsCore.h, CGEvent.h):
// - A handler hears of the events that it was installed for. The newest comes first; whatever it returns but
//   eventNotHandledErr ends it, and no other handler hears of the event.
// - A parameter that an event has not got leaves the caller's memory as it is.
// - One application cannot register a combination twice; the reference stays as it was then. Of other programs the
//   header says so for exclusive registrations alone; here those that are held elsewhere fail as well, so that the
//   failure is tried.
// - What is posted comes to the application that is in front.

using namespace zamber::system;

struct ZamberEventTarget {};
struct ZamberHotKey {
    UInt32 keyCode;
    UInt32 modifiers;
    EventHotKeyID id;
};
struct ZamberEventHandler {
    EventHandlerUPP handler;
    std::vector<EventTypeSpec> types;
    void* userData;
};
struct ZamberEvent {
    EventTypeSpec type;
    bool hasHotKey = false;
    EventHotKeyID hotKey{};
};
struct ZamberEventSource {};
struct ZamberKeyEvent {
    CGKeyCode key;
    bool isDown;
    CGEventFlags flags;
};

namespace {

bool isProcessTrusted = true;
bool isCreationFailing = false;
int livingEvents = 0;
std::optional<CGKeyCode> commandKeyDown; ///< the key that was posted last with Command, and is still down

std::map<int, int>& pastes() {
    static auto* received = new std::map<int, int>; // by the application's number
    return *received;
}

std::set<UInt32>& heldElsewhere() {
    static auto* codes = new std::set<UInt32>;
    return *codes;
}

std::vector<ZamberEventHandler>& handlers() {
    static auto* all = new std::vector<ZamberEventHandler>;
    return *all;
}

std::vector<ZamberHotKey*>& hotKeys() {
    static auto* all = new std::vector<ZamberHotKey*>; // for the life of the process, as the system's
    return *all;
}

// So that CFRelease can tell them apart.
std::set<const void*>& sources() {
    static auto* all = new std::set<const void*>;
    return *all;
}

} // namespace

extern "C" {

EventTargetRef GetApplicationEventTarget() {
    static ZamberEventTarget target;
    return &target;
}

OSStatus RegisterEventHotKey(UInt32 keyCode, UInt32 modifiers, EventHotKeyID id, EventTargetRef target, UInt32 options,
                             EventHotKeyRef* registered) {
    note("RegisterEventHotKey code: %u modifiers: %#x signature: %#x id: %u target: %s options: %u", keyCode, modifiers,
         id.signature, id.id, target == GetApplicationEventTarget() ? "application" : "another", options);
    const bool isOurs = std::ranges::any_of(
        hotKeys(), [=](const ZamberHotKey* each) { return each->keyCode == keyCode && each->modifiers == modifiers; });
    if (isOurs || heldElsewhere().contains(keyCode)) {
        return eventHotKeyExistsErr;
    }
    hotKeys().push_back(new ZamberHotKey{keyCode, modifiers, id});
    *registered = hotKeys().back();
    return noErr;
}

OSStatus InstallEventHandler(EventTargetRef target, EventHandlerUPP handler, unsigned long typeCount,
                             const EventTypeSpec* types, void* userData, EventHandlerRef* installed) {
    note("InstallEventHandler target: %s types: %lu class: %#x kind: %u installed: %s",
         target == GetApplicationEventTarget() ? "application" : "another", typeCount, types->eventClass,
         types->eventKind, installed != nullptr ? "wanted" : "nil");
    handlers().push_back({handler, std::vector(types, types + typeCount), userData});
    return noErr;
}

OSStatus GetEventParameter(EventRef event, OSType name, OSType type, OSType* actualType, ByteCount size,
                           ByteCount* actualSize, void* data) {
    note("GetEventParameter name: %#x type: %#x actualType: %s size: %lu actualSize: %s", name, type,
         actualType != nullptr ? "wanted" : "nil", size, actualSize != nullptr ? "wanted" : "nil");
    if (!event->hasHotKey || name != kEventParamDirectObject || type != typeEventHotKeyID) {
        return -9870; // eventParameterNotFoundErr
    }
    std::memcpy(data, &event->hotKey, size);
    return noErr;
}

OSStatus CreateEvent(void*, OSType eventClass, UInt32 kind, EventTime, UInt32, EventRef* event) {
    *event = new ZamberEvent{{eventClass, kind}};
    return noErr;
}

OSStatus SetEventParameter(EventRef event, OSType, OSType, ByteCount, const void* data) {
    event->hasHotKey = true;
    std::memcpy(&event->hotKey, data, sizeof event->hotKey);
    return noErr;
}

OSStatus SendEventToEventTarget(EventRef event, EventTargetRef) {
    const auto isOfEvent = [event](const EventTypeSpec& type) {
        return type.eventClass == event->type.eventClass && type.eventKind == event->type.eventKind;
    };
    const std::vector<ZamberEventHandler> all = handlers();
    for (auto each = all.rbegin(); each != all.rend(); ++each) {
        if (!std::ranges::any_of(each->types, isOfEvent)) {
            continue;
        }
        const OSStatus outcome = each->handler(nullptr, event, each->userData);
        note("a handler returned %d", outcome);
        if (outcome != eventNotHandledErr) {
            return outcome;
        }
    }
    return eventNotHandledErr;
}

void ReleaseEvent(EventRef event) {
    delete event;
}

CGEventSourceRef CGEventSourceCreate(CGEventSourceStateID state) {
    note("CGEventSourceCreate %d", state);
    auto* const source = new ZamberEventSource;
    sources().insert(source);
    return source;
}

CGEventRef CGEventCreateKeyboardEvent(CGEventSourceRef source, CGKeyCode key, bool isDown) {
    note("CGEventCreateKeyboardEvent source: %s key: %u %s", source != nullptr ? "one" : "none", key,
         isDown ? "down" : "up");
    livingEvents += isCreationFailing ? 0 : 1;
    return isCreationFailing ? nullptr : new ZamberKeyEvent{key, isDown, 0};
}

void CGEventSetFlags(CGEventRef event, CGEventFlags flags) {
    event->flags = flags;
}

void CGEventPost(CGEventTapLocation tap, CGEventRef event) {
    note("CGEventPost tap: %u key: %u %s flags: %#lx", tap, event->key, event->isDown ? "down" : "up", event->flags);
    const bool isWithCommand = event->flags == kCGEventFlagMaskCommand;
    if (event->isDown) {
        commandKeyDown = isWithCommand ? std::optional(event->key) : std::nullopt;
    } else if (commandKeyDown == event->key && event->key == kVK_ANSI_V && isWithCommand) {
        ++pastes()[applicationInFront()];
        commandKeyDown.reset();
    }
}

bool CGPreflightPostEventAccess() {
    return isProcessTrusted;
}

Boolean AXIsProcessTrusted() {
    return isProcessTrusted ? 1 : 0;
}

void CFRelease(CFTypeRef reference) {
    if (sources().erase(reference) > 0) {
        delete static_cast<const ZamberEventSource*>(reference);
    } else {
        --livingEvents;
        delete static_cast<const ZamberKeyEvent*>(reference);
    }
}
}

namespace zamber::system {

void setTrusted(bool isTrusted) {
    isProcessTrusted = isTrusted;
}

bool isTrusted() {
    return isProcessTrusted;
}

void holdHotKeyElsewhere(unsigned keyCode, bool isHeld) {
    isHeld ? static_cast<void>(heldElsewhere().insert(keyCode)) : static_cast<void>(heldElsewhere().erase(keyCode));
}

void failToCreateEvents(bool isFailing) {
    isCreationFailing = isFailing;
}

void sendKeyboardEvent(unsigned kind, std::optional<unsigned> id) {
    EventRef event = nullptr;
    CreateEvent(nullptr, kEventClassKeyboard, kind, 0, kEventAttributeNone, &event);
    if (id) {
        const EventHotKeyID hotKey{'TEST', *id};
        SetEventParameter(event, kEventParamDirectObject, typeEventHotKeyID, sizeof hotKey, &hotKey);
    }
    SendEventToEventTarget(event, GetApplicationEventTarget());
    ReleaseEvent(event);
}

void callNewestHandlerWithNothing() {
    const ZamberEventHandler newest = handlers().back();
    ZamberEvent event{newest.types.front()};
    note("a handler returned %d", newest.handler(nullptr, &event, nullptr));
    note("a handler returned %d", newest.handler(nullptr, nullptr, newest.userData));
}

void pressHotKey(unsigned keyCode, unsigned modifiers) {
    for (const ZamberHotKey* const each : std::vector(hotKeys())) {
        if (each->keyCode == keyCode && each->modifiers == modifiers) {
            sendKeyboardEvent(kEventHotKeyPressed, each->id.id);
            sendKeyboardEvent(kEventHotKeyPressed + 1, each->id.id);
        }
    }
}

void forgetHotKeys() {
    std::ranges::for_each(hotKeys(), [](const ZamberHotKey* each) { delete each; });
    hotKeys().clear();
    handlers().clear();
    heldElsewhere().clear();
}

int pastesReceived(int application) {
    return pastes()[application];
}

int livingKeyEvents() {
    return livingEvents + static_cast<int>(sources().size());
}

} // namespace zamber::system
