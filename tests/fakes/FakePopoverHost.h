// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/PopoverHost.h"
#include "tests/fakes/Journal.h"

#include <QList>

namespace zamber {

/// A popover without a window: it keeps what it was told, and notes it where it was given a journal.
class FakePopoverHost final : public PopoverHost {
public:
    FakePopoverHost() = default;
    explicit FakePopoverHost(Journal& journal)
        : m_journal(&journal) {}

    struct Showing {
        Anchor anchor;
        PopoverEdge edge;
    };

    QWidget* content = nullptr;
    QSize contentSize;
    PopoverAppearance appearance = PopoverAppearance::System;
    QList<Showing> showings;
    bool hasMenus = false; ///< of the desktop's own
    QList<QList<MenuItem>> shownMenus;

    void setContent(ContentMaker makeContent) override {
        content = makeContent();
        note("popover content");
    }

    void setContentSize(QSize points) override {
        note("popover size");
        contentSize = points;
    }

    void setAppearance(PopoverAppearance look) override {
        note("popover appearance");
        appearance = look;
    }

    void show(const Anchor& anchor, PopoverEdge preferredEdge) override {
        note("show popover");
        showings.append({anchor, preferredEdge});
        m_isShown = true;
    }

    void performClose() override {
        note("close popover");
        m_isShown = false;
    }

    bool isShown() const override { return m_isShown; }

    bool showMenu(const QList<MenuItem>& menu, QPoint /*screenPosition*/) override {
        if (hasMenus) {
            note("show row menu");
            shownMenus.append(menu);
        }
        return hasMenus;
    }

    /// The user presses a button somewhere else.
    void pressOutside() { m_isShown = false; }

private:
    void note(const char* entry) {
        if (m_journal != nullptr) {
            m_journal->note(entry);
        }
    }

    Journal* m_journal = nullptr;
    bool m_isShown = false;
};

} // namespace zamber
