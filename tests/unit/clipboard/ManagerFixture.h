// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "preferences/PreferenceKeys.h"

#include "clipboard/ClipboardManager.h"
#include "clipboard/HistoryFile.h"
#include "tests/fakes/FakePasteboard.h"
#include "tests/fakes/FakeScheduler.h"
#include "tests/fakes/FakeUserDefaults.h"
#include "tests/support/LogCapture.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>

namespace zamber::clipboard {

using namespace std::chrono_literals;

/// A history that watches a clipboard in memory, on a clock that the test turns.
class ManagerFixture : public testing::Test {
protected:
    QTemporaryDir home;
    std::filesystem::path path = home.filePath(QStringLiteral("Zamber/clipboard_history.json")).toStdString();
    FakePasteboard pasteboard;
    FakeUserDefaults defaults;
    FakeScheduler scheduler;
    std::shared_ptr<ClipboardManager> manager;

    /// Starts the program, with the history file as it is.
    void start() {
        LogCapture output;
        manager = ClipboardManager::create(pasteboard, defaults, scheduler, path);
        log = output.take();
        manager->startMonitoring();
    }
    /// What the last start wrote to the log.
    std::string log;

    /// Another program copies the text, and the next poll sees it.
    void capture(const QByteArray& text) {
        pasteboard.copyText(text);
        scheduler.advance(500ms);
    }

    void save(const QList<ClipboardItem>& items) const { HistoryFile(path).write(items); }

    QList<ClipboardItem> saved() const { return HistoryFile(path).read().value_or(QList<ClipboardItem>()); }

    /// The entries from front to back, images as "[image]", pinned ones with a star.
    static std::string summary(const QList<ClipboardItem>& items) {
        std::string result;
        for (const auto& item : items) {
            result += result.empty() ? "" : " ";
            result += item.content.isImage() ? "[image]" : item.content.bytes().toStdString();
            result += item.isPinned ? "*" : "";
        }
        return result;
    }
    std::string summary() const { return summary(manager->items()); }

    void search(const QString& text) { manager->setSearchText(text); }
    std::string found() const { return summary(manager->filteredItems()); }
};

} // namespace zamber::clipboard
