// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "clipboard/ClipboardItem.h"
#include "platform/SingleShotTimer.h"

#include <QList>
#include <QObject>
#include <QString>

#include <functional>

namespace zamber::clipboard {
class ClipboardManager;
}

namespace zamber::popover {

/// Puts into words what changes in the list without the focus going there: how many entries a search has found, what
/// was copied, pinned, deleted.
class ListAnnouncements final : public QObject {
public:
    /// How the sentences get to the user, and what the selected row is called; empty where none is.
    struct Callbacks {
        std::function<void(const QString&)> announce;
        std::function<QString()> selectedRow;
    };

    /// How much a search has found is told when the typing rests.
    ListAnnouncements(clipboard::ClipboardManager& manager, Scheduler& scheduler, Callbacks callbacks, QObject* parent);

private:
    void searchChanged();
    void tellFound();
    void itemsChanged();
    QString difference(const QList<clipboard::ClipboardItem>& before) const;

    clipboard::ClipboardManager& m_manager;
    Callbacks m_callbacks;
    QList<clipboard::ClipboardItem> m_known;
    QString m_searchText;
    SingleShotTimer m_rest;
};

} // namespace zamber::popover
