// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "Measuring.h"

#include <array>
#include <cstdio>
#include <random>
#include <string_view>

namespace zamber::bench {

namespace {

int missed = 0;

constexpr std::array<std::string_view, 16> WORDS = {"the",   "clipboard", "keeps",  "what",   "people", "Copy",
                                                    "from",  "window",    "report", "number", "http",   "return",
                                                    "value", "function",  "image",  "line"};
constexpr std::array<std::string_view, 8> OTHER_WORDS = {"größe", "été",    "история", "копия",
                                                         "Ελλάς", "日本語", "naïve",   "😀"};

} // namespace

QByteArray pictureBytes(qsizetype size, std::uint64_t seed) {
    std::mt19937_64 random(seed);
    QByteArray bytes(size, Qt::Uninitialized);
    std::ranges::generate(bytes, [&] { return static_cast<char>(random()); });
    return bytes;
}

QByteArray words(qsizetype size, std::uint64_t seed, Letters letters) {
    std::mt19937_64 random(seed);
    QByteArray text = QByteArray::number(static_cast<qulonglong>(seed));
    while (text.size() < size) {
        const auto number = random();
        const auto word = letters == Letters::Mixed && number % 2 == 0 ? OTHER_WORDS[number / 16 % OTHER_WORDS.size()]
                                                                       : WORDS[number / 16 % WORDS.size()];
        text.append(number % 11 == 0 ? '\n' : ' ').append(word.data(), static_cast<qsizetype>(word.size()));
    }
    return text;
}

QList<clipboard::ClipboardItem> textHistory(int count, qsizetype size, Letters letters) {
    QList<clipboard::ClipboardItem> items;
    for (int i = 0; i < count; ++i) {
        items.append({clipboard::ClipboardContent::text(words(size, static_cast<std::uint64_t>(i), letters)),
                      1'700'000'000.0 - i});
    }
    return items;
}

QList<clipboard::ClipboardItem> pictureHistory(int count, qsizetype size) {
    QList<clipboard::ClipboardItem> items;
    for (int i = 0; i < count; ++i) {
        const auto bytes = pictureBytes(size, static_cast<std::uint64_t>(i));
        items.append({clipboard::ClipboardContent::image(bytes), 1'700'000'000.125 - i});
    }
    return items;
}

std::int64_t bytesOf(const QList<clipboard::ClipboardItem>& items) {
    std::int64_t bytes = 0;
    for (const auto& item : items) {
        bytes += item.content.bytes().size();
    }
    return bytes;
}

void report(const std::string& what, double figure, const char* unit, Bound bound, double goal,
            const std::string& detail) {
    const bool isMet = bound == Bound::AtMost ? figure <= goal : figure >= goal;
    missed += isMet ? 0 : 1;
    std::printf("%-6s %-58s %9.3f %-5s (%s %g)  %s\n", isMet ? "met" : "MISSED", what.c_str(), figure, unit,
                bound == Bound::AtMost ? "at most" : "at least", goal, detail.c_str());
}

void note(const std::string& what, double figure, const char* unit, const std::string& detail) {
    std::printf("%-6s %-58s %9.3f %-5s %s\n", "", what.c_str(), figure, unit, detail.c_str());
}

int missedGoals() {
    return missed;
}

} // namespace zamber::bench
