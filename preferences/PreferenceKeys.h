// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/UserDefaults.h"

#include <QLatin1StringView>
#include <QString>
#include <QStringView>

namespace zamber::preferences {

/// One preference: its key, and what its readers take when it was never written. T is `bool`, `int` or
/// `QStringView`; the last one is read as a QString.
template <class T>
struct PreferenceKey {
    QLatin1StringView name;
    T fallback;
};

inline bool read(const UserDefaults& defaults, const PreferenceKey<bool>& key) {
    return defaults.boolean(key.name).value_or(key.fallback);
}

inline int read(const UserDefaults& defaults, const PreferenceKey<int>& key) {
    return defaults.integer(key.name).value_or(key.fallback);
}

inline QString read(const UserDefaults& defaults, const PreferenceKey<QStringView>& key) {
    return defaults.string(key.name).value_or(key.fallback.toString());
}

inline void write(UserDefaults& defaults, const PreferenceKey<bool>& key, bool value) {
    defaults.setBoolean(key.name, value);
}

inline void write(UserDefaults& defaults, const PreferenceKey<int>& key, int value) {
    defaults.setInteger(key.name, value);
}

inline void write(UserDefaults& defaults, const PreferenceKey<QStringView>& key, const QString& value) {
    defaults.setString(key.name, value);
}

/// Every preference of the program, in the order of the pages that show them.

using namespace Qt::StringLiterals;

inline constexpr PreferenceKey<QStringView> appTheme{"appTheme"_L1, u"auto"};
inline constexpr PreferenceKey<QStringView> popoverSize{"popoverSize"_L1, u"normal"};
inline constexpr PreferenceKey<bool> playSoundOnPaste{"playSoundOnPaste"_L1, false};

/// The history takes a stored 0 for the fallback, too (ClipboardManager::maxItems).
inline constexpr PreferenceKey<int> maxItems{"maxItems"_L1, 20};
inline constexpr PreferenceKey<bool> showLineCount{"showLineCount"_L1, true};
inline constexpr PreferenceKey<bool> showCharCount{"showCharCount"_L1, true};
inline constexpr PreferenceKey<bool> previewURLs{"previewURLs"_L1, true};
inline constexpr PreferenceKey<bool> hideSensitive{"hideSensitive"_L1, false};
inline constexpr PreferenceKey<bool> quickPasteEnabled{"quickPasteEnabled"_L1, false};

/// The hot keys are fixed: the Shortcuts page binds these three, and their values are neither read nor written.
inline constexpr PreferenceKey<QStringView> mainShortcut{"mainShortcut"_L1, u"⌘⇧V"};
inline constexpr PreferenceKey<QStringView> paste2nd{"paste2nd"_L1, u"⌘⇧2"};
inline constexpr PreferenceKey<QStringView> paste3rd{"paste3rd"_L1, u"⌘⇧3"};

inline constexpr PreferenceKey<QStringView> skippedVersion{"skippedVersion"_L1, u""};

} // namespace zamber::preferences
