// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/Log.h"

#include <cstdio>
#include <string>

namespace zamber {

void logLine(std::string_view line) {
    // One write per line, so that lines of several writers to the same pipe do not mix.
    std::string text(line);
    text += '\n';
    std::fwrite(text.data(), 1, text.size(), stdout);
    std::fflush(stdout);
}

} // namespace zamber
