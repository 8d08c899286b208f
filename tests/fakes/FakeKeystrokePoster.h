// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/KeystrokePoster.h"
#include "tests/fakes/FakeWorkspace.h"
#include "tests/fakes/Journal.h"

#include <vector>

namespace zamber {

/// Posts at once, to the application that would have got the keystroke, and remembers which.
class FakeKeystrokePoster final : public KeystrokePoster {
public:
    FakeKeystrokePoster(Journal& journal, FakeWorkspace& workspace)
        : m_journal(journal)
        , m_workspace(workspace) {}

    void postPaste(const Paste& paste, Done done) override {
        m_journal.note("post paste");
        asked.push_back(paste);
        const std::optional<RunningApplication>& target = paste.target;
        const auto front = target && m_workspace.isRunning(*target) ? target : m_workspace.front();
        if (!clipboardIsOurs || !front) {
            done(PasteOutcome::GivenUp);
            return;
        }
        received.push_back(*front);
        done(PasteOutcome::Posted);
    }

    bool clipboardIsOurs = true;
    std::vector<Paste> asked;
    std::vector<RunningApplication> received;

private:
    Journal& m_journal;
    FakeWorkspace& m_workspace;
};

} // namespace zamber
