// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/Log.h"

#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <string>

namespace zamber {

namespace {

/// A pipe that nobody reads is full some day; its reader gets a moment, and does not stop the program.
constexpr int LONGEST_WAIT_MS = 20;

bool canBeWritten(int descriptor) {
    pollfd state{.fd = descriptor, .events = POLLOUT, .revents = 0};
    return poll(&state, 1, LONGEST_WAIT_MS) == 1 && (state.revents & POLLOUT) != 0;
}

} // namespace

void logLine(std::string_view line) {
    // One write per line, so that lines of several writers to the same pipe do not mix; and one line, whatever names
    // other programs give themselves.
    std::string text(line);
    std::ranges::replace(text, '\n', ' ');
    text += '\n';
    std::string_view rest = text;
    while (!rest.empty() && canBeWritten(STDOUT_FILENO)) {
        const ssize_t written = write(STDOUT_FILENO, rest.data(), rest.size());
        if (written >= 0) {
            rest.remove_prefix(static_cast<std::size_t>(written));
        } else if (errno != EINTR) {
            return;
        }
    }
}

} // namespace zamber
