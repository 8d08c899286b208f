// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/links/DomainNames.h"

#include "platform/links/LinkCharacters.h"
#include "platform/links/LinkedTopLevelDomains.h"

#include <QList>
#include <QString>

#include <algorithm>

namespace zamber::links {

using namespace Qt::StringLiterals;

namespace {

/// A label has letters, digits and hyphens, the latter inside only (RFC 1123; the letters of RFC 5890).
bool isLabel(QStringView label) {
    if (label.isEmpty() || label.size() > LONGEST_DOMAIN_LABEL || label.front() == u'-' || label.back() == u'-') {
        return false;
    }
    const QList<uint> characters = label.toUcs4();
    return std::ranges::all_of(characters, [](uint c) { return c == u'-' || isNameCharacter(c); });
}

bool areLabels(const QList<QStringView>& labels) {
    return labels.size() >= 2 && std::ranges::all_of(labels, isLabel);
}

bool isNumber(QStringView label) {
    return std::ranges::all_of(label, [](QChar c) { return c >= u'0' && c <= u'9'; });
}

/// A top-level domain has letters alone, two at least, or is an international name as the name servers have it.
bool mayBeTopLevel(QStringView label) {
    const QList<uint> characters = label.toUcs4();
    return label.startsWith(u"xn--", Qt::CaseInsensitive) ||
           (characters.size() >= 2 &&
            std::ranges::none_of(characters, [](uint c) { return QChar::isDigit(c) || c == u'-'; }));
}

/// "12.in", "1.5.at": a measure or a number and a word.
bool isNumberWithWord(const QList<QStringView>& labels) {
    return std::all_of(labels.begin(), labels.end() - 1, isNumber) && (labels.size() > 2 || labels.front().size() <= 2);
}

/// "there.It": most top-level domains of two letters are also words that begin sentences.
bool isBeginOfSentence(QStringView topLevel) {
    return topLevel.size() == 2 && topLevel[0].isUpper() && topLevel[1].isLower();
}

/// A shared library ("libfoo.so"), or what a configure script fills in ("config.h.in").
bool isFileName(const QList<QStringView>& labels) {
    static constexpr QStringView FILLED_IN[] = {u"ac",  u"am",   u"c",  u"cfg", u"conf",    u"cpp", u"desktop", u"h",
                                                u"hpp", u"json", u"pc", u"py",  u"service", u"sh",  u"txt",     u"xml"};
    if (labels.back() == u"so") {
        return labels.front().startsWith(u"lib");
    }
    return labels.back() == u"in" && std::ranges::find(FILLED_IN, labels[labels.size() - 2]) != std::end(FILLED_IN);
}

} // namespace

bool beginsWithWww(QStringView name) {
    return name.startsWith(u"www.", Qt::CaseInsensitive);
}

bool isLinkWithoutScheme(QStringView name) {
    if (name.size() > LONGEST_DOMAIN_NAME) {
        return false;
    }
    const QList<QStringView> labels = name.split(u'.');
    if (!areLabels(labels)) {
        return false;
    }
    if (beginsWithWww(name)) {
        return mayBeTopLevel(labels.back());
    }
    return isLinkedTopLevelDomain(labels.back()) && !isNumberWithWord(labels) && !isBeginOfSentence(labels.back()) &&
           !isFileName(labels);
}

bool isMailDomain(QStringView name) {
    if (name.size() > LONGEST_DOMAIN_NAME) {
        return false;
    }
    const QList<QStringView> labels = name.split(u'.');
    return areLabels(labels) && mayBeTopLevel(labels.back());
}

} // namespace zamber::links
