// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "Measuring.h"
#include "preferences/PreferenceKeys.h"

#include "clipboard/ClipboardManager.h"
#include "clipboard/HistoryFile.h"
#include "tests/fakes/FakePasteboard.h"
#include "tests/fakes/FakeScheduler.h"
#include "tests/fakes/FakeUserDefaults.h"

#include <QTemporaryDir>
#include <QThread>

#include <benchmark/benchmark.h>

#include <array>
#include <cstring>
#include <memory>
#include <vector>

namespace zamber::bench {

namespace {

using namespace std::chrono_literals;

/// Letters that every text has, words, two scripts, and what is nowhere.
constexpr std::array<const char*, 10> SEARCHES = {"t",     "the", "CLIPBOARD", "window ret", "http", "function value",
                                                  "größe", "е",   "zq",        "keeps whot"};
constexpr const char* MISS = "keeps whot";
constexpr int CAPTURES = 200;
/// Looking a preference and a pointer up, not going through a text.
constexpr double FREE_MICROSECONDS = 0.5;
/// What the answer to a letter may take, also to the first, when hardly a text is ready for searching.
constexpr double FRAME_MILLISECONDS = 16;
constexpr const char* TYPED = "keeps what";

/// A store over fakes, with its history loaded as at a start.
class Store {
public:
    explicit Store(const QList<clipboard::ClipboardItem>& items) {
        UserDefaults::setStandard(&defaults);
        write(defaults, preferences::maxItems, 10'000);
        const auto path = m_folder.filePath(QStringLiteral("history.json")).toStdString();
        clipboard::HistoryFile(path).write(items);
        manager = clipboard::ClipboardManager::create(pasteboard, defaults, scheduler, path);
        manager->startMonitoring();
    }
    ~Store() { UserDefaults::setStandard(nullptr); }
    Store(const Store&) = delete;
    Store& operator=(const Store&) = delete;

    qsizetype search(const char* text) const {
        manager->setSearchText(QString::fromUtf8(text));
        return manager->filteredItems().size();
    }

    /// As long after the start as it takes to make every text ready for searching.
    void becomeReady() {
        const auto isReady = [](const clipboard::ClipboardItem& item) {
            return item.content.hasSearchKey(text::CaseFolding::Common);
        };
        while (!std::ranges::all_of(manager->items(), isReady)) {
            QThread::msleep(1);
            scheduler.advance(0ms);
        }
    }

    /// What a capture costs, beside the fakes' own next to nothing.
    void capture(const QByteArray& text) {
        pasteboard.copyText(text);
        scheduler.advance(500ms);
    }

    // GCC 12 takes its unset members for used when it can see them.
    const std::unique_ptr<FakePasteboard> ownPasteboard = std::make_unique<FakePasteboard>();
    FakePasteboard& pasteboard = *ownPasteboard;
    FakeUserDefaults defaults;
    FakeScheduler scheduler;
    std::shared_ptr<clipboard::ClipboardManager> manager;

private:
    QTemporaryDir m_folder;
};

double microseconds(double seconds) {
    return seconds * 1e6;
}

double seconds(auto action) {
    return shortestTimes(1, action)[0];
}

/// The slowest of the searches, the keys being there.
std::pair<double, const char*> slowestSearch(const Store& store) {
    std::pair<double, const char*> slowest{0, ""};
    for (const auto* text : SEARCHES) {
        const auto time = shortestTimes(15, [&] { benchmark::DoNotOptimize(store.search(text)); })[0];
        slowest = std::max(slowest, std::pair(time, text));
    }
    return slowest;
}

double slowestTypedLetter(const Store& store, const std::string& text) {
    double slowest = 0;
    for (std::size_t length = 1; length <= text.size(); ++length) {
        const auto typed = text.substr(0, length);
        slowest =
            std::max(slowest, shortestTimes(5, [&] { benchmark::DoNotOptimize(store.search(typed.c_str())); })[0]);
    }
    return slowest;
}

/// What a derived value of every entry costs at first, and then, when it should be free.
void measureDerived(const std::string& name, const Store& store) {
    const auto& items = store.manager->items();
    const auto measure = [&](const char* what, auto member) {
        const auto ofAll = [&] {
            for (const auto& item : items) {
                benchmark::DoNotOptimize(member(item.content));
            }
        };
        const auto each = [&](double all) { return microseconds(all) / static_cast<double>(items.size()); };
        const auto first = seconds(ofAll);
        note(name + what + ", at first", each(first), "us",
             std::to_string(static_cast<double>(bytesOf(items)) / 1e9 / first) + " GB/s");
        report(name + what + ", again", each(shortestTimes(5, ofAll)[0]), "us", Bound::AtMost, FREE_MICROSECONDS);
    };
    measure("preview", [](const clipboard::ClipboardContent& content) { return content.preview(); });
    measure("lineCount", [](const clipboard::ClipboardContent& content) { return content.lineCount(); });
    measure("charCount", [](const clipboard::ClipboardContent& content) { return content.charCount(); });
    measure("isSensitive", [](const clipboard::ClipboardContent& content) { return content.isSensitive(); });
}

void measureShortTexts(int count) {
    const auto name = std::to_string(count) + " short texts: ";
    Store store(textHistory(count, 50));
    const auto cold = seconds([&] { benchmark::DoNotOptimize(store.search(MISS)); });
    report(name + "first search, at once", cold * 1000, "ms", Bound::AtMost, FRAME_MILLISECONDS);
    store.becomeReady();
    const auto [slowest, text] = slowestSearch(store);
    const auto all = shortestTimes(15, [&] { benchmark::DoNotOptimize(store.search("")); })[0];
    const auto typed = slowestTypedLetter(store, TYPED);
    measureDerived(name, store);
    const auto firstCapture = seconds([&] { store.capture("the first capture"); });
    std::vector<double> captures;
    for (int number = 0; number < CAPTURES; ++number) {
        store.pasteboard.copyText("captured " + QByteArray::number(number));
        captures.push_back(seconds([&] { store.scheduler.advance(500ms); }));
    }
    std::ranges::sort(captures);
    const auto capture = captures[CAPTURES / 2];
    const auto captureDetail = "median of 200, the slowest " + std::to_string(microseconds(captures.back()));
    const auto detail = std::string("slowest of ten: \"") + text + "\"";
    if (count == 10'000) {
        report(name + "filteredItems, a search", slowest * 1000, "ms", Bound::AtMost, 2.0, detail);
        report(name + "filteredItems, no search", all * 1000, "ms", Bound::AtMost, 2.0);
        report(name + "addItem", microseconds(capture), "us", Bound::AtMost, 100.0, captureDetail);
    } else {
        note(name + "filteredItems, a search", slowest * 1000, "ms", detail);
        note(name + "filteredItems, no search", all * 1000, "ms");
        note(name + "addItem", microseconds(capture), "us", captureDetail);
    }
    note(name + "addItem, the first", microseconds(firstCapture), "us");
    note(name + "slowest letter typed of \"keeps what\"", typed * 1000, "ms");
}

void measureLongTexts(Letters letters) {
    const std::string name = letters == Letters::Ascii ? "100 texts of 1 MB: " : "100 texts of 1 MB, many scripts: ";
    const auto items = textHistory(100, 1'000'000, letters);
    const double gigabytes = static_cast<double>(bytesOf(items)) / 1e9;
    Store store(items);
    const auto cold = seconds([&] { benchmark::DoNotOptimize(store.search(MISS)); });
    report(name + "first search, at once", cold * 1000, "ms", Bound::AtMost, FRAME_MILLISECONDS);
    const auto ready = seconds([&] { store.becomeReady(); });
    note(name + "until all of it is ready", gigabytes / (cold + ready), "GB/s");
    for (const auto* text : SEARCHES) {
        const auto found = store.search(text);
        const auto time = shortestTimes(15, [&] { benchmark::DoNotOptimize(store.search(text)); })[0];
        if (found == 0) {
            report(name + "searching \"" + text + "\"", gigabytes / time, "GB/s", Bound::AtLeast,
                   letters == Letters::Ascii ? 3.0 : 0.3);
        } else { // each text only as far as the first hit
            note(name + "searching \"" + text + "\"", time * 1000, "ms", std::to_string(found) + " found");
        }
    }
    const auto pass = shortestTimes(15, [&] {
        for (const auto& item : store.manager->items()) {
            const auto& key = item.content.searchKey(text::CaseFolding::Common);
            benchmark::DoNotOptimize(std::memchr(key.constData(), 0, static_cast<std::size_t>(key.size())));
        }
    })[0];
    note(name + "one pass over the same bytes (memchr)", gigabytes / pass, "GB/s");

    const auto all = shortestTimes(15, [&] { benchmark::DoNotOptimize(store.search("")); })[0];
    note(name + "filteredItems, no search", all * 1000, "ms");
    note(name + "slowest letter typed of \"keeps what\"", slowestTypedLetter(store, TYPED) * 1000, "ms");
    measureDerived(name, store);
    const auto captured = words(1'000'000, 1'000'000, letters);
    const auto another = seconds([&] { store.capture(captured); });
    note(name + "addItem of another", microseconds(another), "us");
    const auto again = seconds([&] { store.capture(QByteArray(captured.constData(), captured.size())); });
    note(name + "addItem of the same again", microseconds(again), "us");
}

void filteredItems(benchmark::State& state) {
    Store store(textHistory(static_cast<int>(state.range(0)), 50));
    store.becomeReady();
    const auto* text = state.range(1) == 0 ? "" : MISS;
    for (auto _ : state) {
        benchmark::DoNotOptimize(store.search(text));
    }
}
BENCHMARK(filteredItems)->ArgsProduct({{20, 100, 1000, 10'000}, {0, 1}})->ArgNames({"entries", "searching"});

void addItem(benchmark::State& state) {
    Store store(textHistory(static_cast<int>(state.range(0)), 50));
    std::uint64_t number = 0;
    for (auto _ : state) {
        store.capture("captured " + QByteArray::number(static_cast<qulonglong>(++number)));
    }
}
BENCHMARK(addItem)->Arg(20)->Arg(100)->Arg(1000)->Arg(10'000)->ArgName("entries");

void derived(benchmark::State& state, auto member) {
    const auto text = words(state.range(0), 1, state.range(1) == 0 ? Letters::Ascii : Letters::Mixed);
    FakeUserDefaults defaults;
    UserDefaults::setStandard(&defaults);
    for (auto _ : state) {
        benchmark::DoNotOptimize(member(clipboard::ClipboardContent::text(text)));
    }
    state.SetBytesProcessed(state.iterations() * text.size());
    UserDefaults::setStandard(nullptr);
}
void preview(benchmark::State& state) {
    derived(state, [](const clipboard::ClipboardContent& content) { return content.preview(); });
}
void lineCount(benchmark::State& state) {
    derived(state, [](const clipboard::ClipboardContent& content) { return content.lineCount(); });
}
void charCount(benchmark::State& state) {
    derived(state, [](const clipboard::ClipboardContent& content) { return content.charCount(); });
}
void searchKey(benchmark::State& state) {
    derived(state, [](const clipboard::ClipboardContent& content) {
        return content.searchKey(text::CaseFolding::Common).size();
    });
}
void identity(benchmark::State& state) {
    derived(state, [](const clipboard::ClipboardContent& content) { return content.id(); });
}
BENCHMARK(preview)->ArgsProduct({{50, 1'000'000}, {0, 1}})->ArgNames({"bytes", "scripts"});
BENCHMARK(lineCount)->ArgsProduct({{50, 1'000'000}, {0, 1}})->ArgNames({"bytes", "scripts"});
BENCHMARK(charCount)->ArgsProduct({{50, 1'000'000}, {0, 1}})->ArgNames({"bytes", "scripts"});
BENCHMARK(searchKey)->ArgsProduct({{50, 1'000'000}, {0, 1}})->ArgNames({"bytes", "scripts"});
BENCHMARK(identity)->ArgsProduct({{50, 1'000'000}, {0, 1}})->ArgNames({"bytes", "scripts"});

} // namespace

void measureHistoryStore() {
    for (const int count : {20, 100, 1000, 10'000}) {
        measureShortTexts(count);
    }
    measureLongTexts(Letters::Ascii);
    measureLongTexts(Letters::Mixed);
}

} // namespace zamber::bench
