// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/wayland/OwnerProbe.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <utility>

namespace zamber::wayland {

OwnerProbe::OwnerProbe(DataOffer& offer, const QByteArray& type, std::function<void()> isDead)
    : m_isDead(std::move(isDead)) {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0) {
        return; // nothing is known, so nothing is told
    }
    m_pipe = Descriptor(ends[0]);
    const Descriptor writeTo(ends[1]);
    offer.receive(type, writeTo.number());
    m_readable.emplace(m_pipe.number(), QSocketNotifier::Read);
    connect(&*m_readable, &QSocketNotifier::activated, this, &OwnerProbe::read);
    m_bound.setSingleShot(true);
    m_bound.callOnTimeout(this, &OwnerProbe::finish);
    m_bound.start(LONGEST_ANSWER);
}

void OwnerProbe::read() {
    m_readable->setEnabled(false);
    m_bound.stop();
    char first = 0;
    if (::read(m_pipe.number(), &first, 1) <= 0) {
        finish();
    }
}

void OwnerProbe::finish() {
    m_readable->setEnabled(false);
    const auto isDead = std::exchange(m_isDead, nullptr); // a copy, since the call may destroy this object
    isDead();
}

} // namespace zamber::wayland
