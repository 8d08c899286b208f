// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "popover/ListAnnouncements.h"

#include "clipboard/ClipboardManager.h"

#include <QHash>

#include <algorithm>
#include <chrono>
#include <utility>

namespace zamber::popover {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

/// Between two letters of a word nobody wants to hear how many entries match the first one.
constexpr auto TYPING_RESTS = 500ms;

QString entries(qsizetype count) {
    return count == 1 ? u"1 entry"_s : u"%1 entries"_s.arg(count);
}

} // namespace

ListAnnouncements::ListAnnouncements(clipboard::ClipboardManager& manager, Scheduler& scheduler, Callbacks callbacks,
                                     QObject* parent)
    : QObject(parent)
    , m_manager(manager)
    , m_callbacks(std::move(callbacks))
    , m_known(manager.items())
    , m_searchText(manager.searchText())
    , m_rest(scheduler, TYPING_RESTS, [this] { tellFound(); }) {
    connect(&manager, &clipboard::ClipboardManager::itemsChanged, this, &ListAnnouncements::itemsChanged);
    connect(&manager, &clipboard::ClipboardManager::searchTextChanged, this, &ListAnnouncements::searchChanged);
}

void ListAnnouncements::searchChanged() {
    // The signal also comes when more of the history has been made ready for the same search.
    if (std::exchange(m_searchText, m_manager.searchText()) != m_manager.searchText()) {
        m_rest.start();
    }
}

void ListAnnouncements::tellFound() {
    const qsizetype found = m_manager.filteredItems().size();
    QString sentence = m_manager.searchText().isEmpty() ? entries(found)
                       : found == 0                     ? u"No matches found"_s
                                                        : u"%1 found"_s.arg(entries(found));
    // What Return would take.
    if (const QString selected = m_callbacks.selectedRow(); !selected.isEmpty()) {
        sentence += u": "_s + selected;
    }
    m_callbacks.announce(sentence);
}

void ListAnnouncements::itemsChanged() {
    const auto before = std::exchange(m_known, m_manager.items());
    if (const QString change = difference(before); !change.isEmpty()) {
        m_callbacks.announce(change);
    }
}

QString ListAnnouncements::difference(const QList<clipboard::ClipboardItem>& before) const {
    QHash<QUuid, bool> wasPinned;
    for (const clipboard::ClipboardItem& item : before) {
        wasPinned.insert(item.id, item.isPinned);
    }
    for (const clipboard::ClipboardItem& item : m_known) {
        if (!wasPinned.contains(item.id)) {
            return u"Copied"_s; // and what it dropped at the end goes without saying
        }
        if (wasPinned.take(item.id) != item.isPinned) {
            return item.isPinned ? u"Pinned"_s : u"Unpinned"_s;
        }
    }
    const qsizetype gone = wasPinned.size();
    return gone == 0 ? QString() : gone == 1 ? u"Deleted"_s : u"%1 deleted"_s.arg(entries(gone));
}

} // namespace zamber::popover
