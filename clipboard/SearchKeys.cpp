// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "clipboard/SearchKeys.h"

#include "clipboard/Search.h"

#include <utility>

namespace zamber::clipboard {

namespace {

/// How much text is made ready before the list hears of it: small enough for the user to see progress, large enough for
/// the list not to be redone all the time.
constexpr qsizetype HANDED_OVER_AT_ONCE_BYTES = qsizetype{4} << 20;

/// So little text is made ready in some microseconds, less than it takes to wake the other thread.
constexpr qsizetype MADE_IN_PLACE_BYTES = qsizetype{4} << 10;

} // namespace

SearchKeys::SearchKeys(Scheduler& scheduler, Ready ready)
    : m_scheduler(scheduler)
    , m_state(std::make_shared<State>(State{std::move(ready), {}})) {
    m_thread.setMaxThreadCount(1);
    m_thread.setThreadPriority(QThread::LowPriority);
}

SearchKeys::~SearchKeys() {
    m_isStopped = true;
    m_thread.clear();
    m_thread.waitForDone();
}

void SearchKeys::prepare(const QList<ClipboardItem>& items, text::CaseFolding folding) {
    QList<ClipboardItem> missing;
    qsizetype bytes = 0;
    for (const auto& item : items) {
        if (!item.content.hasSearchKey(folding) && !m_state->onTheirWay.contains(item.id)) {
            missing.append(item);
            bytes += item.content.bytes().size();
        }
    }
    if (bytes <= MADE_IN_PLACE_BYTES) {
        for (const auto& item : missing) {
            item.content.searchKey(folding);
            item.content.measure();
        }
    } else {
        for (const auto& item : missing) {
            m_state->onTheirWay.insert(item.id);
        }
        m_thread.start([this, missing, folding] { make(missing, folding); });
    }
}

void SearchKeys::make(const QList<ClipboardItem>& items, text::CaseFolding folding) const {
    QList<Made> made;
    qsizetype bytes = 0;
    for (const auto& item : items) {
        made.append({item, makeSearchKey(item.content.bytes(), folding, m_isStopped)});
        item.content.measure();
        if (m_isStopped) {
            return;
        }
        bytes += item.content.bytes().size();
        if (bytes >= HANDED_OVER_AT_ONCE_BYTES) {
            handOver(std::exchange(made, {}), folding);
            bytes = 0;
        }
    }
    if (!made.isEmpty()) {
        handOver(std::move(made), folding);
    }
}

void SearchKeys::handOver(QList<Made> made, text::CaseFolding folding) const {
    m_scheduler.soon([weak = std::weak_ptr(m_state), made = std::move(made), folding] {
        const auto state = weak.lock();
        if (!state) {
            return;
        }
        for (const auto& [item, key] : made) {
            item.content.keepSearchKey(folding, key);
            state->onTheirWay.remove(item.id);
        }
        state->ready();
    });
}

} // namespace zamber::clipboard
