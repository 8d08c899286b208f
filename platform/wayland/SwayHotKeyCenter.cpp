// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/wayland/SwayHotKeyCenter.h"

#include "platform/freedesktop/KeyPositions.h"
#include "platform/wayland/SwayBindings.h"
#include "platform/wayland/SwayConnection.h"

#include <algorithm>
#include <cstdio>
#include <utility>

namespace zamber::wayland {

namespace {

/// The command of our bindings. It does nothing; the hot key's id stands at its end.
constexpr QByteArrayView COMMAND = "nop app.zamber.Zamber ";

} // namespace

SwayHotKeyCenter::SwayHotKeyCenter(SwayConnection& sway, IsWanted isWanted, CloseMenus closeMenus)
    : m_sway(sway)
    , m_isWanted(std::move(isWanted))
    , m_closeMenus(std::move(closeMenus))
    , m_configuration(sway.configuration()) {
    connect(&sway, &SwayConnection::bindingPressed, this, &SwayHotKeyCenter::handlePress);
    connect(&sway, &SwayConnection::reloaded, this, &SwayHotKeyCenter::bindAgain);
}

SwayHotKeyCenter::~SwayHotKeyCenter() {
    for (Registration& registration : m_registrations) {
        unbind(registration);
    }
}

QString SwayHotKeyCenter::commandKeyHint() const {
    return freedesktop::commandKeyHint();
}

std::optional<HotKeyRef> SwayHotKeyCenter::registerHotKey(PhysicalKey key, HotKeyModifiers modifiers, HotKeyId id) {
    Registration registration{.key = key, .modifiers = modifiers, .id = id.id};
    if (m_isWanted(key) && !bind(registration)) {
        return std::nullopt;
    }
    m_registrations.push_back(registration);
    return HotKeyRef{.id = id.id};
}

bool SwayHotKeyCenter::bind(Registration& registration) {
    const QByteArray combination = swayCombination(registration.key, registration.modifiers);
    const bool isTaken = isBoundIn(m_configuration, registration.key, registration.modifiers);
    registration.isBound = !isTaken && m_sway.run("bindcode --no-repeat " + combination + ' ' + COMMAND.toByteArray() +
                                                  QByteArray::number(registration.id));
    if (!registration.isBound) {
        std::fprintf(stderr, "zamber: the hot key %s is %s\n", combination.constData(),
                     isTaken ? "bound by sway's configuration" : "refused by sway");
    }
    return registration.isBound;
}

void SwayHotKeyCenter::unbind(Registration& registration) {
    if (std::exchange(registration.isBound, false)) {
        m_sway.run("unbindcode --no-repeat " + swayCombination(registration.key, registration.modifiers));
    }
}

void SwayHotKeyCenter::update() {
    for (Registration& registration : m_registrations) {
        const bool isWanted = m_isWanted(registration.key);
        if (isWanted && !registration.isBound) {
            bind(registration);
        } else if (!isWanted) {
            unbind(registration);
        }
    }
}

void SwayHotKeyCenter::bindAgain() {
    m_configuration = m_sway.configuration();
    for (Registration& registration : m_registrations) {
        registration.isBound = false;
    }
    update();
}

void SwayHotKeyCenter::handlePress(const QByteArray& command) {
    if (!command.startsWith(COMMAND) || !m_handler) {
        return;
    }
    const std::uint32_t id = command.mid(COMMAND.size()).toUInt();
    if (std::ranges::find(m_registrations, id, &Registration::id) != m_registrations.end()) {
        m_closeMenus();
        m_handler(id);
    }
}

} // namespace zamber::wayland
