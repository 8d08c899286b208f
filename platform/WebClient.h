// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <chrono>
#include <expected>
#include <functional>
#include <memory>

class QUrl;

namespace zamber {

/// Fetches what lies at an address of the web.
class WebClient {
public:
    static constexpr std::chrono::seconds LONGEST_SILENCE{10};
    static constexpr std::chrono::seconds LONGEST_REQUEST{60};
    static constexpr qint64 LARGEST_BODY_BYTES = 1'000'000;

    /// The reasons for going beyond these bounds.
    static QString timedOut() { return QStringLiteral("The request timed out."); }
    static QString tooLarge() { return QStringLiteral("The answer is larger than 1 MB."); }

    /// The body, whatever the status that came with it, or why there is none, in words for people.
    using Answer = std::expected<QByteArray, QString>;
    using Done = std::function<void(const Answer& answer)>;

    /// One that is under way. Destroyed before its answer, it ends without one.
    class Request {
    public:
        virtual ~Request() = default;
    };

    virtual ~WebClient() = default;

    /// One GET with nothing in it but its address, bounded in time and size: 10 s without a byte, 60 s in all, 1 MB.
    /// It goes where it is sent on to (RFC 9110, section 15.4), but not out of TLS. No answer is kept for the next one.
    /// Calls back once, from the main loop; the request may be destroyed in the call. The client outlives its requests.
    virtual std::unique_ptr<Request> get(const QUrl& address, Done done) = 0;
};

} // namespace zamber
