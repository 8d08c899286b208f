// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/portal/PortalShortcut.h"

#include <algorithm>
#include <array>

namespace zamber::freedesktop::portal {

using namespace Qt::StringLiterals;

namespace {

struct Names {
    PhysicalKey key = PhysicalKey::V;
    QLatin1StringView name;
    QLatin1StringView description;
    QLatin1StringView keyName; // as freedesktop.org's shortcuts are written
};

constexpr std::array NAMES{
    Names{.key = PhysicalKey::V, .name = "open"_L1, .description = "Open Zamber"_L1, .keyName = "v"_L1},
    Names{.key = PhysicalKey::Digit2, .name = "paste-second"_L1, .description = "Paste 2nd item"_L1, .keyName = "2"_L1},
    Names{.key = PhysicalKey::Digit3, .name = "paste-third"_L1, .description = "Paste 3rd item"_L1, .keyName = "3"_L1},
};

const Names& namesOf(PhysicalKey key) {
    return *std::ranges::find(NAMES, key, &Names::key);
}

/// As freedesktop.org's shortcuts are written.
QString triggerOf(PhysicalKey key, HotKeyModifiers modifiers) {
    return (modifiers.command ? u"LOGO+"_s : QString()) + (modifiers.shift ? u"SHIFT+"_s : QString()) +
           namesOf(key).keyName;
}

} // namespace

QDBusArgument& operator<<(QDBusArgument& argument, const PortalShortcut& shortcut) {
    argument.beginStructure();
    argument << shortcut.name << shortcut.properties;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, PortalShortcut& shortcut) {
    argument.beginStructure();
    argument >> shortcut.name >> shortcut.properties;
    argument.endStructure();
    return argument; // NOLINT(bugprone-return-const-ref-from-parameter): as Qt's own operators do
}

QString shortcutNameOf(PhysicalKey key) {
    return namesOf(key).name;
}

PortalShortcut shortcutOf(PhysicalKey key, HotKeyModifiers modifiers) {
    return {.name = shortcutNameOf(key),
            .properties = {{u"description"_s, QString(namesOf(key).description)},
                           {u"preferred_trigger"_s, triggerOf(key, modifiers)}}};
}

} // namespace zamber::freedesktop::portal
