// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Application.h"
#include "tests/fakes/Journal.h"

#include <algorithm>
#include <map>
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

    bool sendAction(const QString& name) override {
        m_journal.note("action " + name.toStdString());
        const auto responder = m_responders.find(name);
        if (responder == m_responders.end()) {
            return false;
        }
        responder->second();
        return true;
    }

    void postNotification(const QString& name) override {
        m_journal.note("notification " + name.toStdString());
        const auto [first, last] = m_observers.equal_range(name);
        std::for_each(first, last, [](const auto& entry) { entry.second(); });
    }

    /// A part of the program that answers to an action.
    void respondTo(const QString& name, std::function<void()> responder) { m_responders[name] = std::move(responder); }

    /// A part of the program that hears of notifications.
    void observe(const QString& name, std::function<void()> observer) {
        m_observers.emplace(name, std::move(observer));
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
    std::map<QString, std::function<void()>> m_responders;
    std::multimap<QString, std::function<void()>> m_observers;
    std::function<void()> m_showRequested;
};

} // namespace zamber
