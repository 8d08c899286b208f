// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <cstdint>
#include <functional>
#include <optional>

namespace zamber {

/// The user's preferences: a flat map from key to value. A key is absent until something writes it, and nothing
/// registers fallbacks: each reader applies its own.
///
/// The getters convert as the Mac's do, so that a value written by hand does no harm:
/// - `integer`: a number as it is (its fraction cut), true as 1, a text by its leading decimal number or else 0;
/// - `boolean`: a number is true unless 0; a text is true when it begins with Y, y, T, t or a digit 1–9 after
///   blanks, a sign and zeros;
/// - `string`: a number in decimal; true and false as "1" and "0".
class UserDefaults {
public:
    using Observer = std::function<void()>;

    /// Names an observer; dropping it does not remove the observer.
    struct ObserverToken {
        std::uint64_t id = 0;
    };

    virtual ~UserDefaults() = default;

    /// Nothing when the key is absent.
    virtual std::optional<QString> string(const QString& key) const = 0;
    virtual std::optional<int> integer(const QString& key) const = 0;
    virtual std::optional<bool> boolean(const QString& key) const = 0;

    /// Store the value at once. Observers of the key are told before the call returns when the value has changed.
    virtual void setString(const QString& key, const QString& value) = 0;
    virtual void setInteger(const QString& key, int value) = 0;
    virtual void setBoolean(const QString& key, bool value) = 0;

    /// The observer is told of every change of the key, also of those made by another process, on the main loop.
    virtual ObserverToken addObserver(const QString& key, Observer observer) = 0;
    virtual void removeObserver(ObserverToken token) = 0;

    /// The preferences of this user and program. The entry point sets them, or a test.
    static UserDefaults& standard();
    static void setStandard(UserDefaults* defaults);
};

} // namespace zamber
