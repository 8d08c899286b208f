// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Alert.h"
#include "tests/fakes/Journal.h"

#include <QList>

#include <algorithm>

namespace zamber {

/// A user who presses what the test says, and the harmless button when it says nothing.
class FakeAlert final : public Alert {
public:
    explicit FakeAlert(Journal& journal)
        : m_journal(journal) {}

    int run(const AlertContent& content) override {
        m_journal.note("alert " + content.message.toStdString());
        shown.append(content);
        const int last = std::max(0, static_cast<int>(content.buttons.size()) - 1);
        return answers.isEmpty() ? last : answers.takeFirst();
    }

    QList<int> answers;
    QList<AlertContent> shown;

private:
    Journal& m_journal;
};

} // namespace zamber
