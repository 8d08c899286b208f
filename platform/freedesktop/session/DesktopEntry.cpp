// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/session/DesktopEntry.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace zamber::freedesktop::session {

using namespace Qt::StringLiterals;

namespace {

/// Entries in a hundred languages have some ten thousand bytes.
constexpr qint64 LARGEST_FILE = 1'000'000;

/// Characters that mean something to a shell; an argument that has one is quoted.
constexpr QStringView RESERVED = u" \t\n\"'\\><~|&;$*?#()`";

/// Characters that mean something to a shell even between quotes.
constexpr QStringView ESCAPED_IN_QUOTES = u"\"`$\\";

QString unescaped(const QString& value) {
    QString text;
    for (qsizetype i = 0; i < value.size(); ++i) {
        if (value[i] != u'\\' || i + 1 == value.size()) {
            text += value[i];
            continue;
        }
        switch (value[++i].unicode()) {
        case u's':
            text += u' ';
            break;
        case u'n':
            text += u'\n';
            break;
        case u't':
            text += u'\t';
            break;
        case u'r':
            text += u'\r';
            break;
        case u'\\':
            text += u'\\';
            break;
        default:
            // No escape of a value. The backslash stays, since it may be one of the quoting in a command line.
            text += u'\\';
            text += value[i];
        }
    }
    return text;
}

/// The arguments of a command line, without quotes and the escapes inside them. Percent signs that stand for
/// themselves are one, field codes are left as they are.
QStringList arguments(const QString& commandLine) {
    QStringList found;
    bool isInArgument = false;
    bool isQuoted = false;
    for (qsizetype i = 0; i < commandLine.size(); ++i) {
        const QChar c = commandLine[i];
        if (!isQuoted && (c == u' ' || c == u'\t' || c == u'\n')) {
            isInArgument = false;
            continue;
        }
        if (!isInArgument) {
            found.append(QString());
            isInArgument = true;
        }
        if (c == u'"') {
            isQuoted = !isQuoted;
        } else if (c == u'\\' && isQuoted && i + 1 < commandLine.size()) {
            found.last() += commandLine[++i];
        } else {
            found.last() += c;
            i += commandLine.sliced(i).startsWith(u"%%"_s) ? 1 : 0;
        }
    }
    return found;
}

/// "de_AT.UTF-8@euro" as the four keys that entries may have for it.
QStringList keysOfLocale(const QString& locale) {
    const QString modifier = locale.contains(u'@') ? locale.sliced(locale.indexOf(u'@')) : QString();
    const QString place = locale.section(u'@', 0, 0).section(u'.', 0, 0); // without the encoding
    const QString language = place.section(u'_', 0, 0);
    const QString country = place.sliced(language.size());
    if (language.isEmpty()) {
        return {};
    }
    QStringList keys{language + country + modifier, language + country, language + modifier, language};
    keys.removeDuplicates();
    return keys;
}

} // namespace

std::optional<DesktopEntry> DesktopEntry::parse(const QByteArray& text) {
    std::optional<DesktopEntry> entry;
    bool isInGroup = false;
    for (const QByteArray& rawLine : text.split('\n')) {
        const QString line = QString::fromUtf8(rawLine).trimmed();
        if (line.startsWith(u'[')) {
            isInGroup = line == u"[Desktop Entry]";
            if (isInGroup && !entry) {
                entry.emplace();
            }
            continue;
        }
        const qsizetype equals = line.indexOf(u'=');
        if (isInGroup && equals > 0 && !line.startsWith(u'#')) {
            entry->m_values.insert(line.first(equals).trimmed(), line.sliced(equals + 1).trimmed());
        }
    }
    return entry;
}

std::optional<DesktopEntry> DesktopEntry::readFile(const QString& path) {
    QFile file(path);
    // Reading a pipe might never end.
    if (!QFileInfo(file).isFile() || file.size() > LARGEST_FILE || !file.open(QIODevice::ReadOnly)) {
        return std::nullopt;
    }
    return parse(file.readAll());
}

QString DesktopEntry::string(const QString& key) const {
    return unescaped(m_values.value(key));
}

QString DesktopEntry::localeString(const QString& key, const QStringList& locales) const {
    for (const QString& locale : locales) {
        const QString text = string(key + u'[' + locale + u']');
        if (!text.isEmpty()) {
            return text;
        }
    }
    return string(key);
}

bool DesktopEntry::boolean(const QString& key, bool fallback) const {
    const QString value = m_values.value(key);
    return value.isEmpty() ? fallback : value.compare(u"true"_s, Qt::CaseInsensitive) == 0 || value == u"1";
}

QStringList DesktopEntry::strings(const QString& key) const {
    return m_values.value(key).split(u';', Qt::SkipEmptyParts);
}

QString DesktopEntry::program() const {
    const QStringList words = arguments(string(u"Exec"_s));
    auto word = words.begin();
    if (word != words.end() && (*word == u"env" || word->endsWith(u"/env"))) {
        // Options of env are rare and not understood here; its variables come before the program.
        word = std::find_if(word + 1, words.end(), [](const QString& text) { return !text.contains(u'='); });
    }
    return word == words.end() ? QString() : *word;
}

QStringList messageLocales() {
    QString locale;
    for (const char* const variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        locale = qEnvironmentVariable(variable);
        if (!locale.isEmpty()) {
            break;
        }
    }
    if (locale.isEmpty() || locale == u"C" || locale == u"POSIX") {
        return {};
    }
    QStringList keys;
    for (const QString& wanted :
         qEnvironmentVariable("LANGUAGE").split(u':', Qt::SkipEmptyParts) + QStringList{locale}) {
        keys += keysOfLocale(wanted);
    }
    keys.removeDuplicates();
    return keys;
}

QString stringValue(const QString& text) {
    QString value = text;
    value.replace(u"\\"_s, u"\\\\"_s).replace(u"\n"_s, u"\\n"_s).replace(u"\t"_s, u"\\t"_s).replace(u"\r"_s, u"\\r"_s);
    return value.startsWith(u' ') ? u"\\s"_s + value.sliced(1) : value;
}

QString execValue(const QString& path) {
    // A percent sign begins a field code.
    const QString literal = QString(path).replace(u"%"_s, u"%%"_s);
    const bool isPlain = std::ranges::none_of(literal, [](QChar c) { return RESERVED.contains(c); });
    if (isPlain) {
        return stringValue(literal);
    }
    QString quoted = u"\""_s;
    for (const QChar c : literal) {
        if (ESCAPED_IN_QUOTES.contains(c)) {
            quoted += u'\\';
        }
        quoted += c;
    }
    return stringValue(quoted + u'"');
}

} // namespace zamber::freedesktop::session
