// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/macos/MacHotKeyCenter.h"

#import <Carbon/Carbon.h>

#include <utility>

namespace zamber::macos {

namespace {

UInt32 keyCode(PhysicalKey key) {
    switch (key) {
    case PhysicalKey::V:
        return kVK_ANSI_V;
    case PhysicalKey::Digit2:
        return kVK_ANSI_2;
    case PhysicalKey::Digit3:
        return kVK_ANSI_3;
    }
    return 0;
}

UInt32 modifierMask(HotKeyModifiers modifiers) {
    return (modifiers.command ? UInt32{cmdKey} : 0) | (modifiers.shift ? UInt32{shiftKey} : 0);
}

OSStatus hotKeyPressed(EventHandlerCallRef, EventRef event, void* userData) {
    if (userData == nullptr || event == nullptr) {
        return noErr;
    }
    EventHotKeyID hotKey{};
    GetEventParameter(event, kEventParamDirectObject, typeEventHotKeyID, nullptr, sizeof(hotKey), nullptr, &hotKey);
    auto* const center = static_cast<MacHotKeyCenter*>(userData);
    dispatch_async(dispatch_get_main_queue(), ^{
      center->tellPressed(hotKey.id);
    });
    return noErr;
}

} // namespace

QString MacHotKeyCenter::commandKeyHint() const {
    return {}; // the key itself is labelled ⌘
}

std::optional<HotKeyRef> MacHotKeyCenter::registerHotKey(PhysicalKey key, HotKeyModifiers modifiers, HotKeyId id) {
    EventHotKeyRef registered = nullptr;
    RegisterEventHotKey(keyCode(key), modifierMask(modifiers), EventHotKeyID{id.signature, id.id},
                        GetApplicationEventTarget(), 0, &registered);
    return registered != nullptr ? std::optional(HotKeyRef{id.id}) : std::nullopt;
}

void MacHotKeyCenter::setPressedHandler(PressedHandler handler) {
    m_pressed = std::move(handler);
    const EventTypeSpec pressed{kEventClassKeyboard, kEventHotKeyPressed};
    InstallEventHandler(GetApplicationEventTarget(), hotKeyPressed, 1, &pressed, this, nullptr);
}

} // namespace zamber::macos
