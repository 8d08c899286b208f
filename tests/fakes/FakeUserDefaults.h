// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/UserDefaults.h"
#include "tests/fakes/Journal.h"

#include <QHash>

#include <map>
#include <utility>
#include <variant>
#include <vector>

namespace zamber {

/// Preferences in memory, empty at first. The write…FromOutside call is what another process does.
class FakeUserDefaults final : public UserDefaults {
public:
    using Value = std::variant<QString, int, bool>;

    FakeUserDefaults() = default;
    explicit FakeUserDefaults(Journal& journal)
        : m_journal(&journal) {}

    QHash<QString, Value> values;

    std::optional<QString> string(const QString& key) const override {
        return converted<QString>(key, [](const auto& value) {
            using Type = std::decay_t<decltype(value)>;
            if constexpr (std::is_same_v<Type, QString>) {
                return value;
            } else {
                return QString::number(static_cast<int>(value));
            }
        });
    }

    std::optional<int> integer(const QString& key) const override {
        return converted<int>(key, [](const auto& value) {
            if constexpr (std::is_same_v<std::decay_t<decltype(value)>, QString>) {
                return static_cast<int>(std::strtol(value.toLatin1().constData(), nullptr, 10));
            } else {
                return static_cast<int>(value);
            }
        });
    }

    std::optional<bool> boolean(const QString& key) const override {
        return converted<bool>(key, [](const auto& value) {
            if constexpr (std::is_same_v<std::decay_t<decltype(value)>, QString>) {
                return meansTrue(value);
            } else {
                return static_cast<bool>(value);
            }
        });
    }

    void setString(const QString& key, const QString& value) override { set(key, value); }
    void setInteger(const QString& key, int value) override { set(key, value); }
    void setBoolean(const QString& key, bool value) override { set(key, value); }

    ObserverToken addObserver(const QString& key, Observer observer) override {
        if (m_journal != nullptr) {
            m_journal->note("observe " + key.toStdString());
        }
        const ObserverToken token{++m_lastId};
        m_observers.emplace(token.id, std::pair(key, std::move(observer)));
        return token;
    }

    void removeObserver(ObserverToken token) override { m_observers.erase(token.id); }

    void writeFromOutside(const QString& key, const QString& value) { set(key, value); }

    std::size_t observerCount() const { return m_observers.size(); }

private:
    Journal* m_journal = nullptr;

    template <class Result, class Convert>
    std::optional<Result> converted(const QString& key, Convert convert) const {
        const auto found = values.find(key);
        if (found == values.end()) {
            return std::nullopt;
        }
        return std::visit([&](const auto& value) -> Result { return convert(value); }, *found);
    }

    static bool meansTrue(const QString& text) {
        qsizetype at = 0;
        const auto skip = [&](QStringView characters) {
            return at < text.size() && characters.contains(text[at]) ? (++at, true) : false;
        };
        while (skip(u" \t\n")) {
        }
        skip(u"+-");
        while (skip(u"0")) {
        }
        return skip(u"YyTt123456789");
    }

    void set(const QString& key, const Value& value) {
        const auto found = values.find(key);
        if (found != values.end() && *found == value) {
            return;
        }
        values.insert(key, value);
        const auto observers = m_observers; // an observer may remove itself and others
        for (const auto& [id, observation] : observers) {
            if (observation.first == key && m_observers.contains(id)) {
                observation.second();
            }
        }
    }

    std::map<std::uint64_t, std::pair<QString, Observer>> m_observers;
    std::uint64_t m_lastId = 0;
};

} // namespace zamber
