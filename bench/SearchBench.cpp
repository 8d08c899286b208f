// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "Measuring.h"
#include "text/ByteView.h"

#include "clipboard/Search.h"

#include <benchmark/benchmark.h>

#include <ctime>
#include <functional>
#include <random>
#include <string>
#include <vector>

namespace zamber::bench {

namespace {

constexpr std::size_t TEXT_BYTES = 1'000'000;
constexpr int ROUNDS = 15;
/// What a key press may cost at most, whatever the script: 100 MB in a third of a second.
constexpr double LEAST_GIGABYTES_A_SECOND = 0.3;

/// A searched text that nobody types: it may take longer, but no longer than in proportion to the text.
constexpr std::size_t LONG_SEARCH_BYTES = 10'000;

/// A text in which the searched one stands nowhere, or only where it is part of a character.
struct Row {
    const char* what;
    std::vector<std::string> parts;
    std::string searched;
};

std::string longTextOf(const std::string& part) {
    std::string text;
    while (text.size() < LONG_SEARCH_BYTES) {
        text += part;
    }
    return text;
}

const std::vector<Row>& rows() {
    static const std::vector<Row> all = {
        {"Hangul, ordinary",
         {"안", "녕", "하", "세", "요", " ", "각", "국", "의", "감", "사", "합", "니", "다", "강", "남", "\n"},
         "가"},
        {"Hangul, every syllable begins like it", {"각"}, "가"},
        {"Hangul, one letter again and again", {"\u1100"}, "\u1100"},
        {"Hangul, nearly the searched text", {"가"}, "가가가가각"},
        {"Thai, ordinary", {"ก", "า", "ร", "ที่", "เ", "ป็", "น", "ไ", "ม่", "ห", "นึ่", "ง", " "}, "ฮเก"},
        {"Thai, every letter has a mark", {"ก็"}, "ก"},
        {"Devanagari, ordinary", {"न", "म", "स्ते", "क", "हि", "न्दी", "र", "त्र", "ा", " ", "ज्ञ"}, "क्"},
        {"Devanagari, every consonant is joined", {"क्ष"}, "क्"},
        {"Devanagari, only joiners searched", {"क्ष", "ज्ञ", "त्र"}, "\u094D"},
        {"emoji, ordinary", {"😀", "🎉", "👍🏽", "❤️", "👩‍👧", "🇩🇪", " ", "ok"}, "👩"},
        {"emoji, every one joined", {"👩‍👧"}, "👩"},
        {"emoji, only joiners searched", {"👩‍👧"}, "\u200D"},
        {"marks, every letter has one", {"e\u0301"}, "e"},
        {"marks, nothing but marks", {"\u0301"}, "\u0301"},
        {"marks, two kinds in turn", {"\u0316", "\u0301"}, "\u0316"},
        {"Latin with accents", {"é", "è", "a", "ü", "n", "t", " ", "r"}, "e"},
        {"Cyrillic, ordinary", {"п", "р", "и", "в", "е", "т", "м", " "}, "ё"},
        {"Chinese, ordinary", {"的", "一", "是", "不", "了", "人", "我", "在", "有"}, "他们"},
        {"one letter again and again, half a long text of them", {"a"}, longTextOf("a") + "b" + longTextOf("a")},
        {"a letter with a mark, a long text of them", {"e\u0301"}, longTextOf("e\u0301") + "e"},
    };
    return all;
}

double processorSeconds(const std::function<void()>& action) {
    const auto start = std::clock();
    action();
    return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

QByteArray textOf(const std::vector<std::string>& parts) {
    std::mt19937 random(20260102);
    std::string text;
    while (text.size() < TEXT_BYTES) {
        text += parts[random() % parts.size()];
    }
    return QByteArray::fromStdString(text);
}

} // namespace

void measureScripts() {
    for (const auto& [what, parts, searched] : rows()) {
        const auto text = textOf(parts);
        const auto key = clipboard::makeSearchKey(text, text::CaseFolding::Common);
        const auto searchedKey =
            clipboard::makeSearchKey(QByteArray::fromStdString(searched), text::CaseFolding::Common);
        // By the processor's time: what else the machine does is not the search's.
        const auto searching = processorSeconds([&] {
            for (int round = 0; round < ROUNDS; ++round) {
                benchmark::DoNotOptimize(clipboard::searchKeyContains(text::view(key), text::view(searchedKey)));
            }
        });
        const auto making = processorSeconds(
            [&] { benchmark::DoNotOptimize(clipboard::makeSearchKey(text, text::CaseFolding::Common)); });
        const auto gigabytes = static_cast<double>(text.size()) / 1e9;
        if (searched.size() < LONG_SEARCH_BYTES) {
            report(std::string("search, ") + what, ROUNDS * gigabytes / searching, "GB/s", Bound::AtLeast,
                   LEAST_GIGABYTES_A_SECOND);
        } else {
            note(std::string("search, ") + what, ROUNDS * gigabytes / searching, "GB/s");
        }
        note(std::string("its key, ") + what, gigabytes / making, "GB/s");
    }
}

} // namespace zamber::bench
