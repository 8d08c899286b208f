// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

/// Key-value observing, as far as the adapters use it: of the application, by its address, and of defaults, by their
/// suite.
namespace zamber::system {

struct Observation {
    std::string subject;
    std::string key;
    void* observer; ///< not retained

    bool operator==(const Observation&) const = default;
};

void observe(const std::string& subject, const std::string& key, void* observer);
void stopObserving(const std::string& subject, const std::string& key, void* observer);

/// On the calling thread.
void tellObservers(const std::string& subject, const std::string& key);

std::string subjectOf(const void* object);

} // namespace zamber::system
