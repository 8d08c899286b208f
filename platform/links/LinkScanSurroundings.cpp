// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/links/DomainNames.h"
#include "platform/links/LinkCharacters.h"
#include "platform/links/LinkScan.h"

#include <algorithm>
#include <array>

namespace zamber::links {

// A name with dots is a link, or a member, a path or half a mail address: the text around it tells which.

/// A domain does not begin in the middle of a path, a mail address, a variable or an argument.
bool LinkScan::mayBeginDomain(qsizetype start) {
    const char32_t before = characterBefore(start);
    const char32_t beforeThat = characterBefore(start - unitsOf(before));
    switch (before) {
    case U'@':
    case U'/':
    case U'\\':
    case U'$':
    case U'~':
    case U'%':
    case U'&':
    case U'!':
    case U'{':
        return false;
    case U':':
        return beforeThat != U':';
    case U'>':
        return beforeThat != U'-';
    case U'(':
    case U'[': {
        const bool isArgument = beforeThat == U'_' || isNameCharacter(beforeThat);
        return !isArgument || text({start, m_text.size()}).startsWith(u"www.", Qt::CaseInsensitive);
    }
    default:
        return true;
    }
}

/// A member that is called, compared or assigned to.
bool LinkScan::isInsideExpression(Range domain) {
    const char32_t next = character(domain.end);
    if (next == U'(' || next == U'@' || next == U'\\') {
        return true;
    }
    if (next == U':' && (unit(domain.end + 1) == u':' || unit(domain.end + 1) == u'/')) {
        return true;
    }
    if (beginsWithWww(text(domain))) {
        return false;
    }
    const qsizetype at = next == U' ' ? domain.end + 1 : domain.end;
    const char16_t first = unit(at);
    const char16_t second = unit(at + 1);
    static constexpr std::array<QStringView, 15> OPERATORS = {u"+=", u"-=", u"*=", u"!=", u"<=", u">=", u"&&", u"||",
                                                              u"++", u"--", u"->", u"=>", u"??", u"<<", u">>"};
    return first == u'=' ||
           std::ranges::any_of(OPERATORS, [&](QStringView known) { return known[0] == first && known[1] == second; });
}

/// "example.com+news@example.org"
bool LinkScan::belongsToMailAddress(qsizetype end) {
    if (m_nextMailSign >= end) {
        return true;
    }
    qsizetype at = end;
    while (at < m_text.size()) {
        const char32_t current = character(at);
        if (current == U'@') {
            m_nextMailSign = at;
            return at > end;
        }
        if (!isNameCharacter(current) && !isMailPunctuation(current)) {
            return false;
        }
        at += unitsOf(current);
    }
    return false;
}

} // namespace zamber::links
