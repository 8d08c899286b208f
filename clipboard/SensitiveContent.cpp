// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "clipboard/SensitiveContent.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

namespace zamber::clipboard {

namespace {

constexpr std::string_view MARKERS[] = {
    "password",   "passwd",   "pwd",         "api_key", "apikey", "api-key",     "secret",  "token",
    "sk-",        "sk_live_", "sk_test_",    "ghp_",    "gho_",   "github_pat_", "bearer ", "authorization:",
    "-----begin", "ssh-rsa",  "ssh-ed25519",
};

/// Of all characters beyond ASCII, the only one whose lower case stands in a marker: k.
constexpr std::string_view KELVIN_SIGN = "\u212A";

/// What of a text can be part of a marker in lower case; other characters stay as they are.
std::string lowerCased(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char c = text[at];
        if (c >= 'A' && c <= 'Z') {
            result += static_cast<char>(c - 'A' + 'a');
        } else if (c == KELVIN_SIGN[0] && text.substr(at).starts_with(KELVIN_SIGN)) {
            result += 'k';
            at += KELVIN_SIGN.size() - 1;
        } else {
            result += c;
        }
    }
    return result;
}

} // namespace

bool looksSensitive(std::string_view text) {
    const auto searched = lowerCased(text);
    return std::ranges::any_of(MARKERS, [&](std::string_view marker) { return searched.contains(marker); });
}

} // namespace zamber::clipboard
