// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/session/XfconfShortcut.h"

#include <utility>

namespace zamber::freedesktop::session {

using namespace Qt::StringLiterals;

namespace {

const QString XFCONF_QUERY = u"xfconf-query"_s;
const QStringList CHANNEL = {u"--channel"_s, u"xfce4-keyboard-shortcuts"_s};
const QStringList PROPERTY = CHANNEL + QStringList{u"--property"_s, u"/commands/custom/<Shift><Super>v"_s};

} // namespace

XfconfShortcut::XfconfShortcut(QString command, Programs programs)
    : m_command(std::move(command))
    , m_programs(std::move(programs)) {}

DesktopShortcutStatus XfconfShortcut::status() const {
    // Of a channel the command says that it is empty where nobody answers; of all channels it does not.
    if (!query({u"--list"_s})) {
        return DesktopShortcutStatus::NotOffered;
    }
    return valueInEffect() == m_command ? DesktopShortcutStatus::Set : DesktopShortcutStatus::NotSet;
}

std::expected<void, QString> XfconfShortcut::set() {
    const QString value = valueInEffect();
    if (value == m_command) {
        return {};
    }
    if (!value.isEmpty()) {
        return std::unexpected(u"⌘⇧V starts “%1” already"_s.arg(value));
    }
    return query(PROPERTY + QStringList{u"--create"_s, u"--type"_s, u"string"_s, u"--set"_s, m_command});
}

std::expected<void, QString> XfconfShortcut::remove() {
    return valueInEffect() == m_command ? query(PROPERTY + QStringList{u"--reset"_s}) : std::expected<void, QString>();
}

/// What the keys start now; empty for nothing.
QString XfconfShortcut::valueInEffect() const {
    return m_programs.answer(XFCONF_QUERY, PROPERTY).value_or(QString()).trimmed();
}

std::expected<void, QString> XfconfShortcut::query(const QStringList& arguments) const {
    const auto answer = m_programs.answer(XFCONF_QUERY, arguments);
    return answer ? std::expected<void, QString>() : std::unexpected(answer.error());
}

} // namespace zamber::freedesktop::session
