// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/UserDefaults.h"

#include <map>

namespace zamber::macos {

/// The user's defaults, in the domain of the application.
class MacUserDefaults final : public UserDefaults {
public:
    /// The standard defaults, or those of that suite.
    MacUserDefaults();
    explicit MacUserDefaults(const QString& suite);
    ~MacUserDefaults() override;
    MacUserDefaults(const MacUserDefaults&) = delete;
    MacUserDefaults& operator=(const MacUserDefaults&) = delete;

    std::optional<QString> string(const QString& key) const override;
    std::optional<int> integer(const QString& key) const override;
    std::optional<bool> boolean(const QString& key) const override;
    void setString(const QString& key, const QString& value) override;
    void setInteger(const QString& key, int value) override;
    void setBoolean(const QString& key, bool value) override;
    ObserverToken addObserver(const QString& key, Observer observer) override;
    void removeObserver(ObserverToken token) override;

private:
    void* m_defaults;                           ///< an NSUserDefaults, retained
    std::map<std::uint64_t, void*> m_observers; ///< the key-value observers, retained
    std::uint64_t m_lastId = 0;
};

} // namespace zamber::macos
