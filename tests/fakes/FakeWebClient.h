// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/WebClient.h"

#include <QObject>
#include <QTimer>
#include <QUrl>

#include <optional>
#include <utility>
#include <vector>

namespace zamber {

/// A web on which everything lies at every address, or nothing.
class FakeWebClient final : public WebClient {
public:
    std::unique_ptr<Request> get(const QUrl& address, Done done) override {
        addresses.push_back(address);
        auto request = std::make_unique<Pending>();
        if (answer) {
            QTimer::singleShot(0, request.get(), [done = std::move(done), told = *answer] { done(told); });
        }
        return request;
    }

    /// What a request is answered at the next turn of the main loop; without one it never is.
    std::optional<Answer> answer;
    /// What was asked for.
    std::vector<QUrl> addresses;

private:
    class Pending final : public QObject, public Request {};
};

} // namespace zamber
