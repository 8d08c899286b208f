// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/wayland/ListedToplevels.h"

#include "platform/wayland/Connection.h"

#include <algorithm>
#include <utility>

namespace zamber::wayland {

ListedToplevels::Window::Window(ListedToplevels& owner)
    : m_owner(owner) {
    described.handle = ++owner.m_lastHandle;
}

void ListedToplevels::Window::setActive(bool isActive) {
    if (std::exchange(m_isActive, isActive) != isActive) {
        Q_EMIT m_owner.activeChanged();
    }
}

void ListedToplevels::Window::remove() {
    ListedToplevels& owner = m_owner;
    std::erase_if(owner.m_windows, [this](const auto& window) { return window.get() == this; });
    Q_EMIT owner.activeChanged();
}

ListedToplevels::ListedToplevels(Connection& connection)
    : m_connection(connection) {}

ListedToplevels::~ListedToplevels() = default;

void ListedToplevels::add(std::unique_ptr<Window> window) {
    m_windows.push_back(std::move(window));
    m_connection.flush();
}

void ListedToplevels::readAll() {
    m_connection.roundTrip(); // the windows
    m_connection.roundTrip(); // and the properties of each
}

std::optional<Toplevels::Toplevel> ListedToplevels::active() const {
    const auto found = std::ranges::find_if(m_windows, [](const auto& window) { return window->isActive(); });
    return found == m_windows.end() ? std::nullopt : std::optional((*found)->described);
}

bool ListedToplevels::isOpen(std::uint64_t handle) const {
    return std::ranges::any_of(m_windows, [handle](const auto& window) { return window->described.handle == handle; });
}

void ListedToplevels::activate(std::uint64_t handle) {
    for (const auto& window : m_windows) {
        if (window->described.handle == handle) {
            window->activate();
            m_connection.flush();
        }
    }
}

void ListedToplevels::catchUp() {
    m_connection.roundTrip();
}

} // namespace zamber::wayland
