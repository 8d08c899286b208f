// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "clipboard/ClipboardManager.h"
#include "platform/Symbols.h"
#include "popover/ClipboardListView.h"
#include "popover/HistoryListWidget.h"
#include "tests/fakes/FakeAppearance.h"
#include "tests/fakes/FakeKeyMonitor.h"
#include "tests/fakes/FakeLinkDetector.h"
#include "tests/fakes/FakePasteboard.h"
#include "tests/fakes/FakeScheduler.h"
#include "tests/fakes/FakeUserDefaults.h"

#include <QTemporaryDir>

#include <chrono>
#include <memory>
#include <utility>

namespace zamber::popover {

/// A history and everything around it, filled by copying as another program would.
class PopoverStage {
public:
    explicit PopoverStage(const Symbols& symbolSet)
        : symbols(symbolSet) {
        UserDefaults::setStandard(&defaults);
        manager = clipboard::ClipboardManager::create(pasteboard, defaults, scheduler,
                                                      (folder.path() + QStringLiteral("/history.json")).toStdString());
        manager->onPaste = [this] { ++pastes; };
        manager->startMonitoring();
    }

    ~PopoverStage() {
        view.reset();
        manager.reset();
        UserDefaults::setStandard(nullptr);
    }

    PopoverStage(const PopoverStage&) = delete;
    PopoverStage& operator=(const PopoverStage&) = delete;

    void copyText(const QByteArray& text) {
        pasteboard.copyText(text);
        letMonitorLook();
    }

    void copyImage(const QByteArray& png) {
        pasteboard.copyImage(ImageType::Png, png);
        letMonitorLook();
    }

    /// Copies "text 0" and so on: the last one is the first row.
    void copyTexts(int count) {
        for (int number = 0; number < count; ++number) {
            copyText("text " + QByteArray::number(number));
        }
    }

    ClipboardListView& makeView() {
        view = std::make_unique<ClipboardListView>(
            keyMonitor, appearance, symbols, defaults, scheduler, manager,
            PopoverServices{.openSettings = [this] { ++settingsOpened; },
                            .closePopover = [this] { ++closed; },
                            .openAddress = [this](const QUrl& address) { opened.append(address); },
                            .showMenu =
                                [this](const QList<MenuItem>& menu, QPoint place) {
                                    menus.append({menu, place});
                                    return hasDesktopMenus;
                                },
                            .linkDetector = &linkDetector,
                            .commandKeyHint = QStringLiteral("⌘ is Command")});
        return *view;
    }

    HistoryListWidget& list() { return view->list(); }

    const Symbols& symbols;
    QTemporaryDir folder;
    FakePasteboard pasteboard;
    FakeUserDefaults defaults;
    FakeScheduler scheduler;
    FakeAppearance appearance;
    FakeKeyMonitor keyMonitor;
    FakeLinkDetector linkDetector;
    std::shared_ptr<clipboard::ClipboardManager> manager;
    std::unique_ptr<ClipboardListView> view;
    int pastes = 0;
    int settingsOpened = 0;
    int closed = 0;
    QList<QUrl> opened;
    bool hasDesktopMenus = false;
    QList<std::pair<QList<MenuItem>, QPoint>> menus; ///< that the desktop was asked for, and where

private:
    void letMonitorLook() { scheduler.advance(std::chrono::milliseconds(500)); }
};

} // namespace zamber::popover
