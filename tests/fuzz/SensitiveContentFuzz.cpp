// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "clipboard/SensitiveContent.h"

#include <unicode/locid.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

constexpr std::string_view LOWER_CASE_MARKERS[] = {
    "password",   "passwd",   "pwd",         "api_key", "apikey", "api-key",     "secret",  "token",
    "sk-",        "sk_live_", "sk_test_",    "ghp_",    "gho_",   "github_pat_", "bearer ", "authorization:",
    "-----begin", "ssh-rsa",  "ssh-ed25519",
};

/// The rule word for word: lower-case everything, then look for each marker.
bool isExpectedSensitive(const std::string& text) {
    std::string lower;
    icu::UnicodeString::fromUTF8(text).toLower(icu::Locale::getRoot()).toUTF8String(lower);
    return std::ranges::any_of(LOWER_CASE_MARKERS, [&](std::string_view marker) { return lower.contains(marker); });
}

} // namespace

/// Any bytes as a text: the detector and the rule agree.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    if (zamber::clipboard::looksSensitive(text) != isExpectedSensitive(text)) {
        std::abort();
    }
    return 0;
}
