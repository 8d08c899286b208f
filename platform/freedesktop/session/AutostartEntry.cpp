// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/session/AutostartEntry.h"

#include <algorithm>

namespace zamber::freedesktop::session {

using namespace Qt::StringLiterals;

namespace {

/// Characters that mean something to a shell; an argument that has one is quoted.
constexpr QStringView RESERVED = u" \t\n\"'\\><~|&;$*?#()`";

/// Those that mean something even between quotes.
constexpr QStringView ESCAPED_IN_QUOTES = u"\"`$\\";

} // namespace

std::optional<QMap<QString, QString>> keysOfDesktopEntry(const QByteArray& text) {
    std::optional<QMap<QString, QString>> keys;
    bool isInGroup = false;
    for (const QByteArray& rawLine : text.split('\n')) {
        const QString line = QString::fromUtf8(rawLine).trimmed();
        if (line.startsWith(u'[')) {
            isInGroup = line == u"[Desktop Entry]";
            if (isInGroup && !keys) {
                keys.emplace();
            }
            continue;
        }
        const qsizetype equals = line.indexOf(u'=');
        if (isInGroup && equals > 0 && !line.startsWith(u'#')) {
            keys->insert(line.first(equals).trimmed(), line.sliced(equals + 1).trimmed());
        }
    }
    return keys;
}

bool isTrue(const QString& value) {
    return value.compare(u"true"_s, Qt::CaseInsensitive) == 0 || value == u"1";
}

QString stringValueOf(const QString& text) {
    QString value = text;
    value.replace(u"\\"_s, u"\\\\"_s).replace(u"\n"_s, u"\\n"_s).replace(u"\t"_s, u"\\t"_s).replace(u"\r"_s, u"\\r"_s);
    return value.startsWith(u' ') ? u"\\s"_s + value.sliced(1) : value;
}

QString textOfStringValue(const QString& value) {
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
        default:
            text += value[i];
        }
    }
    return text;
}

QString execValueOf(const QString& path) {
    // A percent sign begins a field code.
    const QString literal = QString(path).replace(u"%"_s, u"%%"_s);
    const bool isPlain = std::ranges::none_of(literal, [](QChar c) { return RESERVED.contains(c); });
    if (isPlain) {
        return stringValueOf(literal);
    }
    QString quoted = u"\""_s;
    for (const QChar c : literal) {
        if (ESCAPED_IN_QUOTES.contains(c)) {
            quoted += u'\\';
        }
        quoted += c;
    }
    return stringValueOf(quoted + u'"');
}

} // namespace zamber::freedesktop::session
