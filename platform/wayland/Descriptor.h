// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <unistd.h>

#include <utility>

namespace zamber::wayland {

/// The descriptor of an open file. The file is closed when this object is destroyed.
class Descriptor final {
public:
    Descriptor() = default;
    explicit Descriptor(int number)
        : m_number(number) {}
    ~Descriptor() { close(); }
    Descriptor(Descriptor&& other) noexcept
        : m_number(std::exchange(other.m_number, NONE)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        if (this != &other) {
            close();
            m_number = std::exchange(other.m_number, NONE);
        }
        return *this;
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int number() const { return m_number; }
    bool isOpen() const { return m_number != NONE; }

    void close() {
        if (isOpen()) {
            ::close(std::exchange(m_number, NONE));
        }
    }

private:
    static constexpr int NONE = -1;

    int m_number = NONE;
};

} // namespace zamber::wayland
