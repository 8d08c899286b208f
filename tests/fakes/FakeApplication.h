// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Application.h"
#include "tests/fakes/Journal.h"

#include <utility>

namespace zamber {

class FakeApplication final : public Application {
public:
    explicit FakeApplication(Journal& journal)
        : m_journal(journal) {}

    void setAccessoryPolicy() override { m_journal.note("accessory policy"); }
    void activate() override { m_journal.note("activate"); }
    void terminate() override {
        m_journal.note("terminate");
        isTerminated = true;
    }

    void setShowRequestedHandler(std::function<void()> handler) override { m_showRequested = std::move(handler); }

    /// The user starts the program once more.
    void startAgain() {
        if (m_showRequested) {
            m_showRequested();
        }
    }

    bool isTerminated = false;

private:
    Journal& m_journal;
    std::function<void()> m_showRequested;
};

} // namespace zamber
