// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/Log.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <string>

namespace zamber {

namespace {

constexpr std::string_view ELLIPSIS = "…";

/// The first character of a text, or its first byte where the text is not UTF-8.
std::string_view firstCharacter(std::string_view text) {
    const auto first = static_cast<unsigned char>(text.front());
    std::size_t length = 1;
    if (first >= 0xF0) {
        length = 4;
    } else if (first >= 0xE0) {
        length = 3;
    } else if (first >= 0xC0) {
        length = 2;
    }
    std::size_t present = 1;
    while (present < length && present < text.size() && (static_cast<unsigned char>(text[present]) & 0xC0U) == 0x80) {
        ++present;
    }
    return text.substr(0, present);
}

/// The character itself, unless it would break the line or command a terminal.
std::string visible(std::string_view character) {
    const auto first = static_cast<unsigned char>(character.front());
    if (first < 0x20) {
        // Unicode has pictures of these, in their order from U+2400 on.
        return {'\xE2', '\x90', static_cast<char>(0x80 + first)};
    }
    if (first == 0x7F) {
        return "␡";
    }
    if (character.size() == 2 && first == 0xC2 && static_cast<unsigned char>(character[1]) < 0xA0) {
        std::array<char, 16> number{};
        std::snprintf(number.data(), number.size(), "<U+%04X>", static_cast<unsigned char>(character[1]));
        return number.data();
    }
    if (character == "\u2028") {
        return "<U+2028>";
    }
    if (character == "\u2029") {
        return "<U+2029>";
    }
    return std::string(character);
}

std::string printableLine(std::string_view line) {
    constexpr std::size_t longest = LONGEST_LOG_LINE - 1; // then the line break
    std::string text;
    std::size_t cut = 0; // the length at which an ellipsis still fits
    while (!line.empty()) {
        const std::string_view character = firstCharacter(line);
        line.remove_prefix(character.size());
        text += visible(character);
        if (text.size() > longest) {
            text.resize(cut);
            text += ELLIPSIS;
            break;
        }
        if (text.size() <= longest - ELLIPSIS.size()) {
            cut = text.size();
        }
    }
    return text + '\n';
}

/// Standard output opened once more, without waiting for its reader. The flag belongs to the open file, and the first
/// one is shared with the shell and others, so it must not be set there. Only pipes and terminals make a writer wait,
/// and only systems with /proc can open them again.
class NonWaitingOutput {
public:
    NonWaitingOutput() {
        struct stat status{};
        if (fstat(STDOUT_FILENO, &status) == 0 && (S_ISFIFO(status.st_mode) || S_ISCHR(status.st_mode))) {
            m_descriptor = open("/proc/self/fd/1", O_WRONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
        }
    }
    ~NonWaitingOutput() {
        if (m_descriptor >= 0) {
            close(m_descriptor);
        }
    }
    NonWaitingOutput(const NonWaitingOutput&) = delete;
    NonWaitingOutput& operator=(const NonWaitingOutput&) = delete;

    ssize_t write(std::string_view text) const {
        if (m_descriptor >= 0) {
            return ::write(m_descriptor, text.data(), text.size());
        }
        const ssize_t sent = send(STDOUT_FILENO, text.data(), text.size(), MSG_DONTWAIT);
        if (sent >= 0 || errno != ENOTSOCK) {
            return sent;
        }
        pollfd state{.fd = STDOUT_FILENO, .events = POLLOUT, .revents = 0};
        if (poll(&state, 1, 0) != 1 || (state.revents & POLLOUT) == 0) {
            errno = EAGAIN;
            return -1;
        }
        return ::write(STDOUT_FILENO, text.data(), text.size());
    }

private:
    int m_descriptor = -1;
};

} // namespace

void logLine(std::string_view line) {
    const std::string text = printableLine(line);
    const NonWaitingOutput output;
    std::string_view rest = text;
    while (!rest.empty()) {
        const ssize_t written = output.write(rest);
        if (written >= 0) {
            rest.remove_prefix(static_cast<std::size_t>(written));
        } else if (errno != EINTR) {
            return;
        }
    }
}

} // namespace zamber
