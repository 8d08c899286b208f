// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "tests/macos/System.h"

#include <cstdarg>
#include <cstdio>
#include <mutex>

namespace zamber::system {

namespace {

std::mutex callsMutex; ///< other threads make calls too; the tests look when those are over

} // namespace

std::vector<std::string>& calls() {
    static auto* all = new std::vector<std::string>;
    return *all;
}

void note(const char* format, ...) {
    std::va_list arguments;
    va_start(arguments, format);
    char line[1024];
    std::vsnprintf(line, sizeof line, format, arguments);
    va_end(arguments);
    const std::lock_guard lock(callsMutex);
    calls().emplace_back(line);
}

std::vector<std::string> callsDuring(const std::function<void()>& action) {
    return callsDuring(std::string(), action);
}

std::vector<std::string> callsDuring(const std::string& beginning, const std::function<void()>& action) {
    const std::size_t before = calls().size();
    action();
    std::vector<std::string> made;
    for (std::size_t i = before; i < calls().size(); ++i) {
        if (calls()[i].starts_with(beginning)) {
            made.push_back(calls()[i]);
        }
    }
    return made;
}

} // namespace zamber::system
