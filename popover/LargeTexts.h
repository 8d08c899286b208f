// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "clipboard/ClipboardItem.h"

#include <QObject>
#include <QSet>
#include <QThreadPool>
#include <QUuid>

namespace zamber::popover {

/// Counts the lines and characters of large texts, and looks whether they are sensitive, on another thread: with
/// hundreds of megabytes that takes a second. What was found is kept with the content itself.
class LargeTexts final : public QObject {
    Q_OBJECT

public:
    LargeTexts();
    ~LargeTexts() override;

    /// Can the entry be asked for its counts and its preview without waiting? If not, `measured` follows.
    bool isMeasured(const clipboard::ClipboardItem& item);

    /// Forgets all other entries.
    void keepOnly(const QList<clipboard::ClipboardItem>& items);

    static constexpr qsizetype LARGE_BYTES = qsizetype{256} * 1024;

signals:
    void measured(const QUuid& item);

private:
    QSet<QUuid> m_pending;
    QSet<QUuid> m_measured;
    /// Last, so that nothing is measured any more when the rest goes.
    QThreadPool m_measurers;
};

} // namespace zamber::popover
