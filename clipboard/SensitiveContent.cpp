// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "clipboard/SensitiveContent.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace zamber::clipboard {

namespace {

constexpr std::string_view MARKERS[] = {
    "password",   "passwd",   "pwd",         "api_key", "apikey", "api-key",     "secret",  "token",
    "sk-",        "sk_live_", "sk_test_",    "ghp_",    "gho_",   "github_pat_", "bearer ", "authorization:",
    "-----begin", "ssh-rsa",  "ssh-ed25519",
};

constexpr std::size_t stateLimit() {
    std::size_t limit = 1;
    for (const auto marker : MARKERS) {
        limit += marker.size();
    }
    return limit;
}

/// All markers at once, a byte at a time: the state is the longest start of a marker that the text read so far ends
/// with (the automaton of Aho and Corasick).
struct Automaton {
    using State = std::uint8_t;
    static_assert(stateLimit() <= 255);
    static constexpr State FOUND = 255;

    std::array<std::array<State, 128>, stateLimit()> next{};

    consteval Automaton() {
        std::size_t states = 1;
        for (const auto marker : MARKERS) {
            std::size_t state = 0;
            for (std::size_t at = 0; at < marker.size() && state != FOUND; ++at) {
                auto& target = next[state][static_cast<std::size_t>(marker[at])];
                if (at + 1 == marker.size()) {
                    target = FOUND;
                } else if (target == 0) {
                    target = static_cast<State>(states++);
                }
                state = target;
            }
        }
        addFallbacks();
        for (auto& row : next) {
            for (std::size_t letter = 'a'; letter <= 'z'; ++letter) {
                row[letter - 'a' + 'A'] = row[letter];
            }
        }
    }

private:
    /// Breadth first, so that the shorter start that a state falls back to is complete before it is needed.
    consteval void addFallbacks() {
        std::array<State, stateLimit()> queue{};
        std::array<State, stateLimit()> fallback{};
        std::size_t head = 0;
        std::size_t tail = 0;
        for (const State child : next[0]) {
            if (child != 0 && child != FOUND) {
                queue[tail++] = child;
            }
        }
        while (head < tail) {
            const State state = queue[head++];
            for (std::size_t c = 0; c < 128; ++c) {
                auto& target = next[state][c];
                const State shorter = next[fallback[state]][c];
                if (target == 0 || shorter == FOUND) {
                    target = shorter;
                } else if (target != FOUND) {
                    fallback[target] = shorter;
                    queue[tail++] = target;
                }
            }
        }
    }
};

constexpr Automaton AUTOMATON;

} // namespace

bool looksSensitive(std::string_view text) {
    Automaton::State state = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        auto byte = static_cast<unsigned char>(text[at]);
        if (byte >= 0x80) {
            // Of all characters beyond ASCII, only the Kelvin sign has a lower case that stands in a marker: k.
            if (byte != 0xE2 || text.substr(at, 3) != "\u212A") {
                state = 0;
                continue;
            }
            byte = 'k';
            at += 2;
        }
        state = AUTOMATON.next[state][byte];
        if (state == Automaton::FOUND) {
            return true;
        }
    }
    return false;
}

} // namespace zamber::clipboard
