// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "clipboard/ClipboardItem.h"

#include <QByteArray>
#include <QList>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <initializer_list>
#include <limits>
#include <string>
#include <vector>

namespace zamber::bench {

/// The shortest of several runs of each action, in seconds. The actions take turns, so that whatever else the machine
/// does meanwhile slows all of them: what counts is how they compare.
template <class... Actions>
std::vector<double> shortestTimes(int rounds, Actions&&... actions) {
    std::vector<double> shortest(sizeof...(actions), std::numeric_limits<double>::max());
    for (int round = 0; round < rounds; ++round) {
        std::size_t index = 0;
        const auto run = [&](auto& action) {
            const auto start = std::chrono::steady_clock::now();
            action();
            const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
            shortest[index] = std::min(shortest[index], taken.count());
            ++index;
        };
        (run(actions), ...);
    }
    return shortest;
}

/// Bytes that look like a compressed picture, different for each seed.
QByteArray pictureBytes(qsizetype size, std::uint64_t seed);

/// A text of about that size, in words of a few languages' letters when it is `Mixed`.
enum class Letters { Ascii, Mixed };
QByteArray words(qsizetype size, std::uint64_t seed, Letters letters = Letters::Ascii);

/// So many entries of texts of about that size, newest first, no two alike.
QList<clipboard::ClipboardItem> textHistory(int count, qsizetype size, Letters letters = Letters::Ascii);
QList<clipboard::ClipboardItem> pictureHistory(int count, qsizetype size);

/// How many bytes the texts and images have.
std::int64_t bytesOf(const QList<clipboard::ClipboardItem>& items);

/// Prints one line of the table of goals: what, the figure, the most (or with `atLeast` the least) that it may be.
enum class Bound { AtMost, AtLeast };
void report(const std::string& what, double figure, const char* unit, Bound bound, double goal,
            const std::string& detail = {});

/// The same without a goal.
void note(const std::string& what, double figure, const char* unit, const std::string& detail = {});

/// How many goals were missed.
int missedGoals();

void measureHistoryFile();
void measureHistoryReaders();
void measureHistoryStore();
void measureScripts();

/// What the program does when it is started to tell how much memory loading and saving the file take: the peak above
/// what it had before, in bytes, on standard output.
int tellMemory(const std::string& action, const std::string& path);

} // namespace zamber::bench
