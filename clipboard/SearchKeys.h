// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "clipboard/ClipboardItem.h"
#include "platform/Scheduler.h"

#include <QList>
#include <QSet>
#include <QThreadPool>
#include <QUuid>

#include <atomic>
#include <functional>
#include <memory>

namespace zamber::clipboard {

/// Makes texts ready for searching on another thread, and measures them for their rows: with many megabytes that takes
/// a second, which nobody has at the first letter of a search or when the list opens. What was made for searching comes
/// back by the scheduler and is kept with the content. A few short texts are made ready at once.
///
/// Lives on the main thread. Its destruction drops the work under way. The scheduler must outlive it.
class SearchKeys {
public:
    /// Called on the main thread, each time that some more texts are ready.
    using Ready = std::function<void()>;

    SearchKeys(Scheduler& scheduler, Ready ready);
    ~SearchKeys();
    SearchKeys(const SearchKeys&) = delete;
    SearchKeys& operator=(const SearchKeys&) = delete;

    /// Makes those of the entries ready that are neither ready nor on their way.
    void prepare(const QList<ClipboardItem>& items, text::CaseFolding folding);

private:
    struct Made {
        ClipboardItem item;
        QByteArray key;
    };
    struct State {
        Ready ready;
        QSet<QUuid> onTheirWay;
    };
    void make(const QList<ClipboardItem>& items, text::CaseFolding folding) const;
    void handOver(QList<Made> made, text::CaseFolding folding) const;

    Scheduler& m_scheduler;
    /// Actions that the scheduler still has to run hold it weakly.
    const std::shared_ptr<State> m_state;
    std::atomic<bool> m_isStopped = false;
    /// The last member, so that its work has ended before the others are destroyed.
    QThreadPool m_thread;
};

} // namespace zamber::clipboard
