// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/wayland/OutgoingPipes.h"

#include <QSocketNotifier>
#include <QTimer>

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <functional>
#include <utility>

namespace zamber::wayland {

namespace {

/// The most that is written for one reader in a turn of the event loop.
constexpr qsizetype MOST_A_TURN = 1 << 20;

} // namespace

/// One reader. The program ignores SIGPIPE, so that writing to a reader that has gone fails like any other write.
class OutgoingPipes::Transfer final : public QObject {
public:
    Transfer(Descriptor writeTo, QByteArray bytes, std::function<void(Transfer&)> ended)
        : m_pipe(std::move(writeTo))
        , m_writable(m_pipe.number(), QSocketNotifier::Write)
        , m_bytes(std::move(bytes))
        , m_ended(std::move(ended)) {
        fcntl(m_pipe.number(), F_SETFL, fcntl(m_pipe.number(), F_GETFL) | O_NONBLOCK);
        connect(&m_writable, &QSocketNotifier::activated, this, &Transfer::write);
        m_patience.setSingleShot(true);
        m_patience.callOnTimeout(this, [this] { m_ended(*this); });
        m_patience.start(PATIENCE);
    }

    void close() {
        m_writable.setEnabled(false);
        m_patience.stop();
        m_pipe.close();
    }

private:
    void write() {
        const qsizetype size = std::min(m_bytes.size() - m_written, MOST_A_TURN);
        const ssize_t count = ::write(m_pipe.number(), m_bytes.constData() + m_written, static_cast<std::size_t>(size));
        if (count < 0 && errno != EAGAIN && errno != EINTR) {
            m_ended(*this);
            return;
        }
        if (count > 0) {
            m_written += count;
            m_patience.start(PATIENCE);
        }
        if (m_written == m_bytes.size()) {
            m_ended(*this);
        }
    }

    Descriptor m_pipe;
    QSocketNotifier m_writable;
    QTimer m_patience;
    QByteArray m_bytes;
    qsizetype m_written = 0;
    std::function<void(Transfer&)> m_ended;
};

OutgoingPipes::OutgoingPipes() = default;
OutgoingPipes::~OutgoingPipes() = default;

void OutgoingPipes::send(Descriptor writeTo, const QByteArray& bytes) {
    if (bytes.isEmpty()) {
        return; // an empty content: closing the pipe is the whole answer
    }
    m_transfers.push_back(
        std::make_unique<Transfer>(std::move(writeTo), bytes, [this](Transfer& ended) { drop(ended); }));
}

void OutgoingPipes::drop(Transfer& ended) {
    const auto found = std::ranges::find(m_transfers, &ended, &std::unique_ptr<Transfer>::get);
    ended.close();
    found->release()->deleteLater(); // this function is called by the writer itself
    m_transfers.erase(found);
}

} // namespace zamber::wayland
