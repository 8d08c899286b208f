// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Workspace.h"
#include "tests/fakes/Journal.h"

#include <QString>

#include <algorithm>
#include <utility>
#include <vector>

namespace zamber {

/// A desktop of applications that start, come to the front and quit when the test says so.
class FakeWorkspace final : public Workspace {
public:
    explicit FakeWorkspace(Journal& journal)
        : m_journal(journal) {}

    RunningApplication launch(std::optional<QString> name) {
        const RunningApplication application{.handle = ++m_lastHandle,
                                             .processId = 1000 + static_cast<std::int64_t>(m_lastHandle),
                                             .localizedName = std::move(name)};
        m_running.push_back(application);
        return application;
    }

    void quit(const RunningApplication& application) {
        std::erase(m_running, application);
        if (m_frontmost == application) {
            m_frontmost.reset();
        }
    }

    bool isRunning(const RunningApplication& application) const {
        return std::ranges::find(m_running, application) != m_running.end();
    }

    const std::optional<RunningApplication>& front() const { return m_frontmost; }

    void bringToFront(const std::optional<RunningApplication>& application) { m_frontmost = application; }

    std::optional<RunningApplication> frontmostApplication() override {
        m_journal.note("frontmost application");
        return m_frontmost;
    }

    void activate(const RunningApplication& application) override {
        m_journal.note("activate " + application.localizedName.value_or(QStringLiteral("unnamed")).toStdString());
        if (isRunning(application)) {
            m_frontmost = application;
        }
    }

    void open(const QUrl& address) override { m_journal.note("open " + address.toString().toStdString()); }

private:
    Journal& m_journal;
    std::vector<RunningApplication> m_running;
    std::optional<RunningApplication> m_frontmost;
    std::uint64_t m_lastHandle = 0;
};

} // namespace zamber
