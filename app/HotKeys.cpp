// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "preferences/PreferenceKeys.h"

#include "app/AppDelegate.h"
#include "platform/HotKeyCenter.h"
#include "platform/Scheduler.h"
#include "platform/UserDefaults.h"

namespace zamber::app {

namespace {

constexpr std::uint32_t SIGNATURE = ('Z' << 24U) | ('M' << 16U) | ('B' << 8U) | 'R';
constexpr std::uint32_t MAIN = 1;
constexpr std::uint32_t QUICK_PASTE_2 = 2;
constexpr std::uint32_t QUICK_PASTE_3 = 3;

} // namespace

void AppDelegate::registerHotKey() {
    constexpr HotKeyModifiers COMMAND_SHIFT{.command = true, .shift = true};
    HotKeyCenter& center = m_desktop.hotKeys;
    m_hotKeyRef = center.registerHotKey(PhysicalKey::V, COMMAND_SHIFT, {SIGNATURE, MAIN});
    m_quickPasteHotKey2Ref = center.registerHotKey(PhysicalKey::Digit2, COMMAND_SHIFT, {SIGNATURE, QUICK_PASTE_2});
    m_quickPasteHotKey3Ref = center.registerHotKey(PhysicalKey::Digit3, COMMAND_SHIFT, {SIGNATURE, QUICK_PASTE_3});
    center.setPressedHandler([weakSelf = weak_from_this()](std::uint32_t id) {
        if (const auto self = weakSelf.lock()) {
            self->m_desktop.scheduler.soon([self, id] { self->handleHotKey(id); });
        }
    });
}

void AppDelegate::handleHotKey(std::uint32_t id) {
    switch (id) {
    case MAIN:
        showPopover();
        break;
    case QUICK_PASTE_2:
    case QUICK_PASTE_3:
        // The keys stay registered whatever the preference says, so that it takes effect with the next press.
        if (read(m_desktop.userDefaults, preferences::quickPasteEnabled)) {
            quickPaste(id == QUICK_PASTE_2 ? 1 : 2);
        }
        break;
    default:
        break;
    }
}

} // namespace zamber::app
