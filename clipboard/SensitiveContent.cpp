// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "clipboard/SensitiveContent.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace zamber::clipboard {

namespace {

/// In lower case; by their first letters, so that those which begin alike are found together.
constexpr std::string_view MARKERS[] = {
    "-----begin",  "api-key",     "api_key",  "apikey", "authorization:", "bearer ", "gho_",     "ghp_",
    "github_pat_", "passwd",      "password", "pwd",    "secret",         "sk-",     "sk_live_", "sk_test_",
    "ssh-rsa",     "ssh-ed25519", "token",
};
static_assert(std::ranges::is_sorted(MARKERS, {}, [](std::string_view marker) { return marker.front(); }));

/// Of all characters beyond ASCII, the only one whose lower case stands in a marker: k.
constexpr std::string_view KELVIN_SIGN = "\u212A";

constexpr char lowerCase(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

constexpr char upperCase(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

/// With which two bytes a marker may begin. Few pairs of an ordinary text do, so that one look at each is nearly all
/// that a long text costs.
class Beginnings {
public:
    constexpr Beginnings() {
        for (const std::string_view marker : MARKERS) {
            for (const char first : {marker[0], upperCase(marker[0])}) {
                for (const char second :
                     {marker[1], upperCase(marker[1]), marker[1] == 'k' ? KELVIN_SIGN[0] : marker[1]}) {
                    const auto pair = pairOf(first, second);
                    m_bits[pair / BITS] |= std::uint64_t{1} << pair % BITS;
                }
            }
        }
    }

    constexpr bool contains(char first, char second) const {
        const auto pair = pairOf(first, second);
        return (m_bits[pair / BITS] >> pair % BITS & 1U) != 0;
    }

private:
    static constexpr std::size_t BITS = 64;

    static constexpr std::size_t pairOf(char first, char second) {
        return std::size_t{static_cast<unsigned char>(first)} << 8U | static_cast<unsigned char>(second);
    }

    std::array<std::uint64_t, std::size_t{256} * 256 / BITS> m_bits{};
};

constexpr Beginnings BEGINNINGS;

bool startsWith(std::string_view text, std::string_view marker) {
    for (const char c : marker) {
        if (c == 'k' && text.starts_with(KELVIN_SIGN)) {
            text.remove_prefix(KELVIN_SIGN.size());
        } else if (!text.empty() && lowerCase(text.front()) == c) {
            text.remove_prefix(1);
        } else {
            return false;
        }
    }
    return true;
}

bool startsWithMarker(std::string_view text) {
    const auto begins = [](std::string_view marker) { return marker.front(); };
    return std::ranges::any_of(std::ranges::equal_range(MARKERS, lowerCase(text.front()), {}, begins),
                               [text](std::string_view marker) { return startsWith(text, marker); });
}

} // namespace

bool looksSensitive(std::string_view text) {
    for (std::size_t at = 0; at + 1 < text.size(); ++at) {
        if (BEGINNINGS.contains(text[at], text[at + 1]) && startsWithMarker(text.substr(at))) {
            return true;
        }
    }
    return false;
}

} // namespace zamber::clipboard
