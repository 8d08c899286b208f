// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/session/GSettingsShortcut.h"

#include <QRegularExpression>

#include <utility>

namespace zamber::freedesktop::session {

using namespace Qt::StringLiterals;

namespace {

const QString GSETTINGS = u"gsettings"_s;
const QString KEYS = u"<Super><Shift>v"_s;

/// A string as GVariant's text form has it.
QString literal(const QString& text) {
    QString escaped = text;
    escaped.replace(u'\\', u"\\\\"_s).replace(u'\'', u"\\'"_s);
    return u'\'' + escaped + u'\'';
}

/// The strings of a list in GVariant's text form, each as it stands there.
QStringList literalsOf(const QString& list) {
    static const QRegularExpression string(uR"('(?:[^'\\]|\\.)*'|"(?:[^"\\]|\\.)*")"_s);
    QStringList literals;
    for (auto match = string.globalMatch(list); match.hasNext();) {
        literals << match.next().captured();
    }
    return literals;
}

QString textOf(const QString& literal) {
    static const QRegularExpression escaped(uR"(\\(.))"_s);
    return literal.sliced(1, literal.size() - 2).replace(escaped, uR"(\1)"_s);
}

} // namespace

GSettingsShortcutKeys GSettingsShortcut::gnome() {
    const QString path = u"/org/gnome/settings-daemon/plugins/media-keys/custom-keybindings/zamber/"_s;
    return {.listSchema = u"org.gnome.settings-daemon.plugins.media-keys"_s,
            .listKey = u"custom-keybindings"_s,
            .listed = path,
            .entrySchema = u"org.gnome.settings-daemon.plugins.media-keys.custom-keybinding"_s,
            .entryPath = path,
            .binding = GSettingsShortcutKeys::Binding::One};
}

GSettingsShortcutKeys GSettingsShortcut::cinnamon() {
    // Cinnamon's own settings read a number out of each name, and give new ones the smallest that is free.
    const QString name = u"custom2647"_s;
    return {.listSchema = u"org.cinnamon.desktop.keybindings"_s,
            .listKey = u"custom-list"_s,
            .listed = name,
            .entrySchema = u"org.cinnamon.desktop.keybindings.custom-keybinding"_s,
            .entryPath = u"/org/cinnamon/desktop/keybindings/custom-keybindings/%1/"_s.arg(name),
            .binding = GSettingsShortcutKeys::Binding::List};
}

GSettingsShortcut::GSettingsShortcut(GSettingsShortcutKeys keys, QString command, Programs programs)
    : m_keys(std::move(keys))
    , m_command(std::move(command))
    , m_programs(std::move(programs)) {}

DesktopShortcutStatus GSettingsShortcut::status() const {
    const auto listed = list();
    if (!listed) {
        return DesktopShortcutStatus::NotOffered;
    }
    if (!listed->contains(literal(m_keys.listed))) {
        return DesktopShortcutStatus::NotSet;
    }
    const auto command = m_programs.answer(GSETTINGS, {u"get"_s, entry(), u"command"_s});
    const QStringList literals = literalsOf(command.value_or(QString()));
    const bool isOurs = literals.size() == 1 && textOf(literals.first()) == m_command;
    return isOurs ? DesktopShortcutStatus::Set : DesktopShortcutStatus::NotSet;
}

std::expected<void, QString> GSettingsShortcut::set() {
    auto listed = list();
    if (!listed) {
        return std::unexpected(listed.error());
    }
    // The desktop reads a shortcut when its list changes, so an entry that was there leaves the list first.
    if (listed->removeAll(literal(m_keys.listed)) > 0) {
        if (auto done = writeList(*listed); !done) {
            return done;
        }
    }
    const bool isList = m_keys.binding == GSettingsShortcutKeys::Binding::List;
    const std::pair<QString, QString> values[] = {
        {u"name"_s, literal(u"Zamber"_s)},
        {u"command"_s, literal(m_command)},
        {u"binding"_s, isList ? u'[' + literal(KEYS) + u']' : literal(KEYS)},
    };
    for (const auto& [key, value] : values) {
        if (auto done = write(entry(), key, value); !done) {
            return done;
        }
    }
    return writeList(*listed << literal(m_keys.listed));
}

std::expected<void, QString> GSettingsShortcut::remove() {
    auto listed = list();
    if (!listed) {
        return std::unexpected(listed.error());
    }
    if (listed->removeAll(literal(m_keys.listed)) == 0) {
        return {};
    }
    if (auto done = writeList(*listed); !done) {
        return done;
    }
    const auto reset = m_programs.answer(GSETTINGS, {u"reset-recursively"_s, entry()});
    return reset ? std::expected<void, QString>() : std::unexpected(reset.error());
}

std::expected<QStringList, QString> GSettingsShortcut::list() const {
    const auto text = m_programs.answer(GSETTINGS, {u"get"_s, m_keys.listSchema, m_keys.listKey});
    if (!text) {
        return std::unexpected(text.error());
    }
    return literalsOf(*text);
}

std::expected<void, QString> GSettingsShortcut::writeList(const QStringList& list) const {
    return write(m_keys.listSchema, m_keys.listKey, list.isEmpty() ? u"@as []"_s : u'[' + list.join(u", "_s) + u']');
}

std::expected<void, QString> GSettingsShortcut::write(const QString& schema, const QString& key,
                                                      const QString& value) const {
    const auto done = m_programs.answer(GSETTINGS, {u"set"_s, schema, key, value});
    return done ? std::expected<void, QString>() : std::unexpected(done.error());
}

/// A schema that has no place of its own, at the place of our shortcut.
QString GSettingsShortcut::entry() const {
    return m_keys.entrySchema + u':' + m_keys.entryPath;
}

} // namespace zamber::freedesktop::session
