// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "clipboard/ClipboardManager.h"

#include "preferences/PreferenceKeys.h"
#include "text/ByteView.h"

#include "clipboard/HistoryFile.h"
#include "clipboard/Search.h"
#include "platform/Log.h"
#include "platform/Pasteboard.h"
#include "platform/UserDefaults.h"

#include <algorithm>
#include <chrono>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

namespace zamber::clipboard {

namespace {

using namespace std::chrono_literals;

constexpr auto POLL_INTERVAL = 500ms;
constexpr auto SAVE_DELAY = 1000ms;
/// So much text is made ready for searching while the user waits for the first letter, which takes a few milliseconds
/// of a frame.
constexpr qsizetype MADE_READY_AT_ONCE_BYTES = qsizetype{128} * 1024;

} // namespace

std::shared_ptr<ClipboardManager> ClipboardManager::create(Pasteboard& pasteboard, UserDefaults& defaults,
                                                           Scheduler& scheduler, std::filesystem::path historyFile) {
    std::shared_ptr<ClipboardManager> manager(
        new ClipboardManager(pasteboard, defaults, scheduler, std::move(historyFile)));
    manager->prepareSearch();
    return manager;
}

ClipboardManager::ClipboardManager(Pasteboard& pasteboard, UserDefaults& defaults, Scheduler& scheduler,
                                   std::filesystem::path historyFile)
    : m_pasteboard(pasteboard)
    , m_defaults(defaults)
    , m_scheduler(scheduler)
    , m_historyFile(std::move(historyFile)) {
    loadFromDisk();
}

void ClipboardManager::setSearchText(const QString& text) {
    if (text == m_searchText) {
        return;
    }
    m_searchText = text;
    emit searchTextChanged();
}

QList<ClipboardItem> ClipboardManager::filteredItems() const {
    const auto folding = userCaseFolding();
    const auto searched = makeSearchKey(m_searchText.toUtf8(), folding);
    std::vector<const ClipboardItem*> found;
    qsizetype bytesLeft = MADE_READY_AT_ONCE_BYTES;
    bool isReady = true;
    const auto matches = [&](const ClipboardContent& content) {
        if (!content.hasSearchKey(folding)) {
            if (content.bytes().size() > bytesLeft) {
                isReady = false;
                return true;
            }
            bytesLeft -= content.bytes().size();
        }
        return searchKeyContains(text::view(content.searchKey(folding)), text::view(searched));
    };
    for (const auto& item : m_items) {
        if (searched.isEmpty() || matches(item.content)) {
            found.push_back(&item);
        }
    }
    if (!isReady) {
        m_searchKeys->prepare(m_items, folding);
    }
    const auto comesFirst = [](const ClipboardItem* left, const ClipboardItem* right) {
        // The place in the history decides last, so that entries of one moment never swap.
        return std::tuple(right->timestamp, left) < std::tuple(left->timestamp, right);
    };
    const auto recent = std::ranges::stable_partition(found, &ClipboardItem::isPinned);
    for (const auto& section : {std::ranges::subrange(found.begin(), recent.begin()), recent}) {
        // The history is in this order nearly always. To sort ten thousand entries takes longer than to find them.
        if (!std::ranges::is_sorted(section, comesFirst)) {
            std::ranges::sort(section, comesFirst);
        }
    }

    QList<ClipboardItem> result;
    result.reserve(static_cast<qsizetype>(found.size()));
    for (const auto* item : found) {
        result.append(*item);
    }
    return result;
}

int ClipboardManager::maxItems() const {
    const int stored = read(m_defaults, preferences::maxItems);
    return stored == 0 ? preferences::maxItems.fallback : stored;
}

void ClipboardManager::startMonitoring() {
    m_lastChangeCount = m_pasteboard.changeCount();
    m_timer = m_scheduler.every(POLL_INTERVAL, [weak = weak_from_this()] {
        if (const auto self = weak.lock()) {
            self->checkClipboard();
        }
    });
}

void ClipboardManager::checkClipboard() {
    if (m_pasteboard.changeCount() == m_lastChangeCount) {
        return;
    }
    m_lastChangeCount = m_pasteboard.changeCount();

    auto image = m_pasteboard.data(ImageType::Tiff);
    if (!image) {
        image = m_pasteboard.data(ImageType::Png);
    }
    if (image) {
        addItem(ClipboardContent::image(*std::move(image)));
    } else if (auto text = m_pasteboard.string(); text && !text->isEmpty()) {
        addItem(ClipboardContent::text(*std::move(text)));
    }
}

void ClipboardManager::prepareSearch() {
    m_searchKeys = std::make_unique<SearchKeys>(m_scheduler, [weak = weak_from_this()] {
        if (const auto self = weak.lock(); self && !self->m_searchText.isEmpty()) {
            emit self->searchTextChanged();
        }
    });
    m_searchKeys->prepare(m_items, userCaseFolding());
}

void ClipboardManager::addItem(const ClipboardContent& content) {
    m_items.removeIf([&](const ClipboardItem& item) { return !item.isPinned && item.content == content; });
    m_items.prepend(ClipboardItem(content, m_scheduler.now()));
    m_searchKeys->prepare(m_items.first(1), userCaseFolding());

    qint64 kept = 0;
    m_items.removeIf([&, limit = maxItems()](const ClipboardItem& item) { return !item.isPinned && ++kept > limit; });
    scheduleSave();
    emit itemsChanged();
}

void ClipboardManager::copyToClipboard(const ClipboardItem& item) {
    const auto& bytes = item.content.bytes();
    m_pasteboard.clearContents();
    if (item.content.isImage()) {
        m_pasteboard.setData(ImageType::Tiff, bytes); // PNG bytes, too: the adapter looks at them
    } else {
        m_pasteboard.setString(bytes);
    }
    m_lastChangeCount = m_pasteboard.changeCount();
}

void ClipboardManager::togglePin(const ClipboardItem& item) {
    const auto index = m_items.indexOf(item);
    if (index < 0) {
        return;
    }
    m_items[index].isPinned = !m_items[index].isPinned;
    scheduleSave();
    emit itemsChanged();
}

void ClipboardManager::deleteItem(const ClipboardItem& item) {
    const auto removed = m_items.removeAll(item);
    scheduleSave();
    if (removed > 0) {
        emit itemsChanged();
    }
}

void ClipboardManager::clearAll() {
    const auto removed = m_items.removeIf([](const ClipboardItem& item) { return !item.isPinned; });
    scheduleSave();
    if (removed > 0) {
        emit itemsChanged();
    }
}

void ClipboardManager::scheduleSave() {
    if (m_saveDebouncer) {
        m_scheduler.invalidate(*m_saveDebouncer);
    }
    m_saveDebouncer = m_scheduler.after(SAVE_DELAY, [weak = weak_from_this()] {
        if (const auto self = weak.lock()) {
            self->saveToDisk();
        }
    });
}

void ClipboardManager::saveToDisk() {
    HistoryFile(m_historyFile).write(m_items);
}

void ClipboardManager::loadFromDisk() {
    if (auto items = HistoryFile(m_historyFile).read()) {
        m_items = *std::move(items);
        logLine("📋 Loaded " + std::to_string(m_items.size()) + " items from disk");
    }
}

} // namespace zamber::clipboard
