// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/wayland/IncomingPipe.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <new>
#include <utility>

namespace zamber::wayland {

namespace {

/// A larger pipe takes fewer turns of the event loop. One turn reads no more than the pipe holds.
constexpr int PIPE_BYTES = 1 << 20;

} // namespace

IncomingPipe::IncomingPipe(Descriptor readFrom, Done done)
    : m_pipe(std::move(readFrom))
    , m_readable(m_pipe.number(), QSocketNotifier::Read)
    , m_done(std::move(done)) {
    fcntl(m_pipe.number(), F_SETFL, O_NONBLOCK);
    fcntl(m_pipe.number(), F_SETPIPE_SZ, PIPE_BYTES); // the kernel refuses when a user has too many large pipes
    connect(&m_readable, &QSocketNotifier::activated, this, &IncomingPipe::read);
    m_patience.setSingleShot(true);
    m_patience.callOnTimeout(this, [this] { finish(endOfNothing()); });
    m_patience.start(PATIENCE);
}

void IncomingPipe::read() {
    const qsizetype before = m_bytes.size();
    if (before + PIPE_BYTES > LARGEST) {
        finish(OwnerAnswer::Outcome::BrokenOff);
        return;
    }
    ssize_t count = 0;
    int failure = 0;
    try {
        if (m_bytes.capacity() < before + PIPE_BYTES) {
            m_bytes.reserve(2 * before + PIPE_BYTES);
        }
        m_bytes.resize(before + PIPE_BYTES);
        count = ::read(m_pipe.number(), m_bytes.data() + before, PIPE_BYTES);
        failure = errno;
        m_bytes.truncate(before + (count > 0 ? count : 0));
    } catch (const std::bad_alloc&) {
        finish(OwnerAnswer::Outcome::BrokenOff);
        return;
    }
    if (count > 0) {
        m_patience.start(PATIENCE);
    } else if (count == 0) {
        m_bytes.squeeze(); // the buffer has grown in large steps, and may be kept for long
        finish(OwnerAnswer::Outcome::Delivered);
    } else if (failure != EAGAIN && failure != EINTR) {
        finish(endOfNothing());
    }
}

IncomingPipe::OwnerAnswer::Outcome IncomingPipe::endOfNothing() const {
    return m_bytes.isEmpty() ? OwnerAnswer::Outcome::Silent : OwnerAnswer::Outcome::BrokenOff;
}

void IncomingPipe::finish(OwnerAnswer::Outcome outcome) {
    m_readable.setEnabled(false);
    m_patience.stop();
    m_pipe.close(); // an owner that still writes learns of it by its next write
    const QByteArray bytes = std::exchange(m_bytes, {});
    if (const Done done = std::exchange(m_done, nullptr)) {
        done(outcome, outcome == OwnerAnswer::Outcome::Delivered ? bytes : QByteArray());
    }
}

} // namespace zamber::wayland
