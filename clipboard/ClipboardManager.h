// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "clipboard/ClipboardItem.h"
#include "clipboard/SearchKeys.h"
#include "platform/Scheduler.h"

#include <QList>
#include <QObject>
#include <QString>

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>

namespace zamber {
class Pasteboard;
class UserDefaults;
} // namespace zamber

namespace zamber::clipboard {

/// The history: watches the clipboard, keeps the entries and their rules, and saves them a second after each change.
///
/// Lives on the main thread. Its timers hold it weakly. Entries given to it are matched by id alone, so that a copy
/// with an older pin state finds its entry.
class ClipboardManager final : public QObject, public std::enable_shared_from_this<ClipboardManager> {
    Q_OBJECT

public:
    /// Loads the history file; does not start to watch the clipboard. The ports must outlive the manager.
    static std::shared_ptr<ClipboardManager> create(Pasteboard& pasteboard, UserDefaults& defaults,
                                                    Scheduler& scheduler, std::filesystem::path historyFile);

    /// Newest capture first; pinning moves nothing.
    const QList<ClipboardItem>& items() const { return m_items; }

    /// Used as it stands: a single space is a real search.
    const QString& searchText() const { return m_searchText; }
    void setSearchText(const QString& text);

    /// The entries that match the search text: pinned ones first, then the newest first. A large text that is still
    /// being made ready for searching is among them; `searchTextChanged` follows when it is.
    QList<ClipboardItem> filteredItems() const;

    /// How many unpinned entries a capture leaves, read from the preferences at each call. May be negative.
    int maxItems() const;

    /// Called by the views after they have put the user's choice on the clipboard; never by the manager.
    std::function<void()> onPaste;

    /// Watches the clipboard from now on; what it holds already is not captured. Meant to be called once: a second
    /// call adds a second timer.
    void startMonitoring();

    /// Puts the content on the clipboard without capturing it again. The history does not change.
    void copyToClipboard(const ClipboardItem& item);
    void togglePin(const ClipboardItem& item);
    void deleteItem(const ClipboardItem& item);
    /// Removes all entries but the pinned ones.
    void clearAll();

signals:
    void itemsChanged();
    /// The search text has changed, or the entries that it finds.
    void searchTextChanged();

private:
    ClipboardManager(Pasteboard& pasteboard, UserDefaults& defaults, Scheduler& scheduler,
                     std::filesystem::path historyFile);

    void checkClipboard();
    void prepareSearch();
    void addItem(const ClipboardContent& content);
    void scheduleSave();
    void saveToDisk();
    void loadFromDisk();

    Pasteboard& m_pasteboard;
    UserDefaults& m_defaults;
    Scheduler& m_scheduler;
    const std::filesystem::path m_historyFile;
    QList<ClipboardItem> m_items;
    QString m_searchText;
    std::unique_ptr<SearchKeys> m_searchKeys;
    std::optional<Scheduler::Token> m_timer;
    std::optional<Scheduler::Token> m_saveDebouncer;
    int m_lastChangeCount = 0;
};

} // namespace zamber::clipboard
