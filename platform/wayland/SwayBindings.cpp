// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/wayland/SwayBindings.h"

#include "platform/freedesktop/KeyPositions.h"

#include <QByteArrayList>

#include <algorithm>
#include <array>
#include <map>
#include <ranges>
#include <set>
#include <string_view>

namespace zamber::wayland {

namespace {

struct Place {
    PhysicalKey key = PhysicalKey::V;
    std::array<QByteArray, 2> names; // without and with Shift, in lower case

    QByteArray code() const { return QByteArray::number(freedesktop::positionOf(key).code); }
};

const Place& placeOf(PhysicalKey key) {
    static const std::array places{
        Place{.key = PhysicalKey::V, .names = {"v", "v"}},
        Place{.key = PhysicalKey::Digit2, .names = {"2", "at"}},
        Place{.key = PhysicalKey::Digit3, .names = {"3", "numbersign"}},
    };
    return *std::ranges::find(places, key, &Place::key);
}

QByteArrayList wordsOf(const QByteArray& line) {
    QByteArrayList words = line.simplified().split(' ');
    words.removeAll({});
    return words;
}

/// The longest names first, as sway does, so that $mod does not match the beginning of $mod2.
QByteArray withVariables(QByteArray text, const std::map<QByteArray, QByteArray>& variables) {
    std::vector<std::pair<QByteArray, QByteArray>> ordered(variables.begin(), variables.end());
    std::ranges::sort(ordered, std::greater{}, [](const auto& variable) { return variable.first.size(); });
    for (const auto& [name, value] : ordered) {
        text.replace(name, value);
    }
    return text;
}

QByteArray normalised(const QByteArray& part) {
    const QByteArray lower = part.toLower();
    return lower == "super" || lower == "logo" ? "mod4" : lower;
}

bool isSame(const QByteArray& combination, const Place& place, HotKeyModifiers modifiers) {
    std::set<QByteArray> parts;
    for (const QByteArray& part : combination.split('+')) {
        parts.insert(normalised(part));
    }
    const auto takesOut = [&parts](const QByteArray& part, bool isWanted) {
        return (parts.erase(part) > 0) == isWanted;
    };
    if (!takesOut("mod4", modifiers.command) || !takesOut("shift", modifiers.shift) || parts.size() != 1) {
        return false;
    }
    const QByteArray& key = *parts.begin();
    return key == place.code() || std::ranges::find(place.names, key) != place.names.end();
}

} // namespace

QByteArray swayCombination(PhysicalKey key, HotKeyModifiers modifiers) {
    QByteArray combination;
    if (modifiers.command) {
        combination += "Mod4+";
    }
    if (modifiers.shift) {
        combination += "Shift+";
    }
    return combination + placeOf(key).code();
}

bool isBoundIn(const QByteArray& configuration, PhysicalKey key, HotKeyModifiers modifiers) {
    std::map<QByteArray, QByteArray> variables;
    for (const QByteArray& line : configuration.split('\n')) {
        QByteArrayList words = wordsOf(line);
        if (words.size() >= 3 && words[0] == "set") {
            variables[words[1]] = withVariables(words[2], variables);
            continue;
        }
        if (words.size() < 2 || (words[0] != "bindsym" && words[0] != "bindcode")) {
            continue;
        }
        words.removeFirst();
        while (!words.isEmpty() && words.first().startsWith("--")) {
            words.removeFirst();
        }
        if (!words.isEmpty() && isSame(withVariables(words.first(), variables), placeOf(key), modifiers)) {
            return true;
        }
    }
    return false;
}

} // namespace zamber::wayland
