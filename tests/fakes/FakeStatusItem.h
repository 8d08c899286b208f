// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/StatusItem.h"
#include "tests/fakes/Journal.h"

#include <QList>

#include <utility>

namespace zamber {

class FakeStatusItem final : public StatusItem {
public:
    explicit FakeStatusItem(Journal& journal)
        : m_journal(journal) {}

    void showSymbol(const QString& symbol, const QString& accessibilityDescription) override {
        m_journal.note("status item " + symbol.toStdString());
        description = accessibilityDescription;
    }

    std::optional<Anchor> button() const override { return place; }
    void setClickedHandler(ClickedHandler handler) override { m_handler = std::move(handler); }
    void showMenuOnce(const QList<MenuItem>& menu) override { shownMenus.push_back(menu); }

    void click(MouseButton button) {
        if (m_handler) {
            m_handler(button);
        }
    }

    QString description;
    std::optional<Anchor> place = Anchor{.screenRectangle = QRect(1000, 0, 24, 24), .handle = 0};
    QList<QList<MenuItem>> shownMenus;

private:
    Journal& m_journal;
    ClickedHandler m_handler;
};

} // namespace zamber
