// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Workspace.h"
#include "tests/fakes/Journal.h"

#include <QString>
#include <QStringList>

#include <algorithm>
#include <utility>
#include <vector>

namespace zamber {

/// A desktop of applications that start, come to the front and quit when the test says so.
class FakeWorkspace final : public Workspace {
public:
    explicit FakeWorkspace(Journal& journal)
        : m_journal(journal) {}

    /// Calls back at once, or with `finishOpening` when the test holds it.
    void openNewInstance(const QString& path, Started done) override {
        m_journal.note("new instance of " + path.toStdString());
        if (missingFiles.contains(path)) {
            openingError = QStringLiteral("No such file");
        }
        if (isOpeningHeld) {
            m_opening = std::move(done);
        } else {
            done(openingError);
        }
    }
    void finishOpening() { std::exchange(m_opening, nullptr)(openingError); }
    bool isOpeningHeld = false;
    std::optional<QString> openingError;

    std::expected<void, QString> moveToTrash(const QString& path) override {
        m_journal.note("trash " + path.toStdString());
        if (trashError || missingFiles.contains(path)) {
            return std::unexpected(trashError.value_or(QStringLiteral("No such file")));
        }
        return {};
    }
    std::optional<QString> trashError;
    QStringList missingFiles;

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
    Started m_opening;
    Journal& m_journal;
    std::vector<RunningApplication> m_running;
    std::optional<RunningApplication> m_frontmost;
    std::uint64_t m_lastHandle = 0;
};

} // namespace zamber
