// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "Measuring.h"
#include "text/ByteView.h"

#include "clipboard/Base64.h"
#include "clipboard/HistoryFile.h"
#include "clipboard/HistoryWriter.h"

#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace zamber::bench {

namespace {

constexpr int IMAGES = 100;
constexpr qsizetype IMAGE_BYTES = 2'000'000;
constexpr int ROUNDS = 7;
constexpr double MEGABYTE = 1e6;

/// The least that saving can be: all of it encoded, and one write over the old file. The buffer is there already.
void encodeAndWrite(const QList<clipboard::ClipboardItem>& items, const std::filesystem::path& path,
                    std::vector<char>& buffer) {
    std::size_t size = 1;
    for (const auto& item : items) {
        size += clipboard::base64Length(text::view(item.content.bytes()).size());
    }
    buffer.resize(size);
    char* to = buffer.data();
    for (const auto& item : items) {
        clipboard::encodeBase64(to, text::view(item.content.bytes()));
        to += clipboard::base64Length(text::view(item.content.bytes()).size());
    }
    const int file = ::open(path.c_str(), O_WRONLY | O_CREAT, 0600);
    benchmark::DoNotOptimize(::write(file, buffer.data(), size - 1));
    ::close(file);
}

/// The least that loading can be: one read, and all of it decoded. The buffer is there already.
QList<QByteArray> readAndDecode(const std::filesystem::path& path, std::size_t textLength, std::vector<char>& buffer) {
    const auto size = std::filesystem::file_size(path);
    buffer.resize(size);
    const int file = ::open(path.c_str(), O_RDONLY);
    benchmark::DoNotOptimize(::read(file, buffer.data(), size));
    ::close(file);
    QList<QByteArray> images;
    for (std::size_t at = 0; at + textLength <= size; at += textLength) {
        images.append(clipboard::fromBase64({buffer.data() + at, textLength}).value_or(QByteArray()));
    }
    return images;
}

/// As the Mac's writer has them.
void escapeSlashes(const std::filesystem::path& from, const std::filesystem::path& to) {
    std::ifstream in(from, std::ios::binary);
    std::ofstream out(to, std::ios::binary);
    std::string text((std::istreambuf_iterator<char>(in)), {});
    std::string escaped;
    for (const char c : text) {
        escaped.append(c == '/' ? 1 : 0, '\\').push_back(c);
    }
    out << escaped;
}

double peakBytesOf(const char* action, const std::filesystem::path& path) {
    const auto command =
        std::filesystem::read_symlink("/proc/self/exe").string() + " --memory " + action + " " + path.string();
    double bytes = 0;
    if (FILE* output = ::popen(command.c_str(), "r")) {
        if (std::fscanf(output, "%lf", &bytes) != 1) {
            bytes = 0;
        }
        ::pclose(output);
    }
    return bytes;
}

/// From /proc/self/status, in bytes.
double statusBytes(const std::string& key) {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with(key + ":")) {
            return std::stod(line.substr(key.size() + 1)) * 1024;
        }
    }
    return 0;
}

double inMilliseconds(double seconds) {
    return seconds * 1000;
}

std::string milliseconds(double ours, double least) {
    std::array<char, 80> text{};
    std::snprintf(text.data(), text.size(), "%.1f ms against %.1f ms", inMilliseconds(ours), inMilliseconds(least));
    return text.data();
}

void measureMemory(const std::filesystem::path& path, double historyBytes) {
    const double goal = (1.15 * historyBytes + 32 * 1024 * 1024) / MEGABYTE;
    report("peak private memory while loading", peakBytesOf("load", path) / MEGABYTE, "MB", Bound::AtMost, goal);
    report("peak private memory while saving", peakBytesOf("save", path) / MEGABYTE, "MB", Bound::AtMost, goal);
}

void measureTexts(const QTemporaryDir& folder, const char* what, const QList<clipboard::ClipboardItem>& items) {
    const clipboard::HistoryFile file(folder.filePath(QStringLiteral("texts.json")).toStdString());
    file.write(items);
    const auto times = shortestTimes(3, [&] { file.write(items); }, [&] { benchmark::DoNotOptimize(file.read()); });
    const double gigabytes = static_cast<double>(bytesOf(items)) / 1e9;
    note(std::string("saving ") + what, inMilliseconds(times[0]), "ms", std::to_string(gigabytes / times[0]) + " GB/s");
    note(std::string("loading ") + what, inMilliseconds(times[1]), "ms",
         std::to_string(gigabytes / times[1]) + " GB/s");
}

} // namespace

void measureHistoryFile() {
    const QTemporaryDir folder;
    const std::filesystem::path ours = folder.filePath(QStringLiteral("history.json")).toStdString();
    const std::filesystem::path least = folder.filePath(QStringLiteral("least.txt")).toStdString();
    const std::filesystem::path escaped = folder.filePath(QStringLiteral("escaped.json")).toStdString();
    const clipboard::HistoryFile file(ours);
    double historyBytes = 0;
    std::vector<char> buffer;
    {
        const auto items = pictureHistory(IMAGES, IMAGE_BYTES);
        historyBytes = static_cast<double>(bytesOf(items));
        const auto times = shortestTimes(
            ROUNDS, [&] { encodeAndWrite(items, least, buffer); }, [&] { file.write(items); },
            [&] { benchmark::DoNotOptimize(clipboard::historyJsonSize(items)); });
        // What stands between the first changed byte and the last: all of saving but for what comes before.
        note("of it, a kill costs the file for", inMilliseconds(times[1] - times[2]), "ms");
        report("saving 100 images of 2 MB / encoding and one write", times[1] / times[0], "", Bound::AtMost, 1.5,
               milliseconds(times[1], times[0]));
    }
    escapeSlashes(ours, escaped);
    const clipboard::HistoryFile escapedFile(escaped);
    const auto times = shortestTimes(
        ROUNDS, [&] { benchmark::DoNotOptimize(readAndDecode(least, clipboard::base64Length(IMAGE_BYTES), buffer)); },
        [&] { benchmark::DoNotOptimize(file.read()); }, [&] { benchmark::DoNotOptimize(escapedFile.read()); });
    report("loading 100 images of 2 MB / one read and decoding", times[1] / times[0], "", Bound::AtMost, 2.0,
           milliseconds(times[1], times[0]));
    // The parser copies what is escaped; only the Mac's own writer does that to every slash, once.
    report("the same with each slash written as \\/", times[2] / times[0], "", Bound::AtMost, 5.0,
           milliseconds(times[2], times[0]));
    measureMemory(ours, historyBytes);
    measureTexts(folder, "100 texts of 1 MB, ASCII", textHistory(100, 1'000'000));
    measureTexts(folder, "100 texts of 1 MB, letters of many scripts", textHistory(100, 1'000'000, Letters::Mixed));
    measureTexts(folder, "10,000 texts of 50 B", textHistory(10'000, 50));
}

int tellMemory(const std::string& action, const std::string& path) {
    const clipboard::HistoryFile file(path);
    const auto before = statusBytes("RssAnon");
    const auto loaded = action == "save" ? file.read() : std::nullopt;
    std::ofstream("/proc/self/clear_refs") << 5 << std::flush; // the peak counts from here
    const auto peakOfFiles = [] { return statusBytes("RssFile") + statusBytes("RssShmem"); };
    if (action == "save") {
        file.write(*loaded);
    } else {
        benchmark::DoNotOptimize(file.read());
    }
    std::printf("%.0f\n", statusBytes("VmHWM") - peakOfFiles() - before);
    return 0;
}

} // namespace zamber::bench
