// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/x11/SecretMark.h"

#include "platform/freedesktop/selection/SelectionTypes.h"
#include "platform/x11/SelectionProperty.h"

#include <algorithm>
#include <utility>

namespace zamber::x11 {

namespace {

using freedesktop::selection::TYPE_PASSWORD_MANAGER_HINT;
using freedesktop::selection::TYPE_TEXT_PLAIN;
using freedesktop::selection::TYPE_TEXT_PLAIN_UTF8;

bool isAmong(const std::vector<QByteArray>& types, QByteArrayView type) {
    return std::ranges::find(types, type) != types.end();
}

/// Compositors give X's names for texts Wayland's; all else they pass on as it is.
bool mayBeOfTargets(const QByteArray& type, const std::vector<QByteArray>& targets) {
    return type == TYPE_TEXT_PLAIN || type == TYPE_TEXT_PLAIN_UTF8 || isAmong(targets, type);
}

} // namespace

SecretMark::SecretMark(Connection& connection)
    : m_connection(connection)
    , m_names(connection)
    , m_transfers(connection) {}

void SecretMark::ask(const std::vector<QByteArray>& offered, Answer answer) {
    abandon();
    m_offered = offered;
    m_answer = std::move(answer);
    m_connection.requestTimestamp([this, question = ++m_questions](xcb_timestamp_t time) {
        if (question == m_questions) {
            askOwner(time);
        }
    });
}

void SecretMark::askOwner(xcb_timestamp_t time) {
    const xcb_window_t owner = m_connection.selectionOwner(m_connection.atom(Atom::Clipboard));
    if (owner == XCB_WINDOW_NONE) {
        tell(false);
        return;
    }
    m_query = {.selection = m_connection.atom(Atom::Clipboard),
               .target = m_connection.atom(Atom::Targets),
               .time = time,
               .owner = owner};
    m_transfer =
        &m_transfers.ask(m_query, [this](TransferEnd end, const Property& targets) { handleTargets(end, targets); });
}

void SecretMark::handleTargets(TransferEnd end, const Property& answer) {
    m_transfer = nullptr;
    if (end == TransferEnd::Silent || end == TransferEnd::BrokenOff) {
        tell(std::nullopt);
        return;
    }
    const auto targets =
        end == TransferEnd::Delivered ? offeredTargets(answer, m_connection.atom(Atom::Targets)) : std::nullopt;
    const std::vector<QByteArray> names = targets ? m_names.namesOf(*targets) : std::vector<QByteArray>();
    const bool isSameCopy =
        std::ranges::all_of(m_offered, [&names](const QByteArray& type) { return mayBeOfTargets(type, names); });
    if (!isSameCopy || !isAmong(names, TYPE_PASSWORD_MANAGER_HINT)) {
        tell(false);
        return;
    }
    m_query.target = m_names.atomOf(TYPE_PASSWORD_MANAGER_HINT.toByteArray());
    m_transfer =
        &m_transfers.ask(m_query, [this](TransferEnd ended, const Property& mark) { handleMark(ended, mark); });
}

void SecretMark::handleMark(TransferEnd end, const Property& answer) {
    m_transfer = nullptr;
    if (end == TransferEnd::Silent || end == TransferEnd::BrokenOff) {
        tell(std::nullopt); // it may have been about to say so
    } else {
        tell(end == TransferEnd::Delivered && freedesktop::selection::saysSecret(answer.bytes));
    }
}

void SecretMark::abandon() {
    if (m_transfer != nullptr) {
        std::exchange(m_transfer, nullptr)->abandon();
    }
    m_answer = nullptr;
}

void SecretMark::tell(std::optional<bool> isSecret) {
    if (const Answer answer = std::exchange(m_answer, nullptr)) {
        answer(isSecret);
    }
}

} // namespace zamber::x11
