// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/links/LinkScan.h"

#include "platform/links/DomainNames.h"
#include "platform/links/LinkCharacters.h"

#include <algorithm>

namespace zamber::links {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype LONGEST_SCHEME = 32;
constexpr qsizetype LONGEST_MAIL_NAME = 64;

bool isAsciiLetter(char16_t unit) {
    return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z');
}
bool isAsciiDigit(char16_t unit) {
    return unit >= u'0' && unit <= u'9';
}

bool isSchemeUnit(char16_t unit) {
    return isAsciiLetter(unit) || isAsciiDigit(unit) || unit == u'+' || unit == u'-' || unit == u'.';
}

bool isHostCharacter(char32_t character) {
    return character == U'.' || character == U'-' || character == U'_' || isNameCharacter(character);
}

bool isOneOf(QStringView name, std::initializer_list<QStringView> names) {
    return std::ranges::any_of(names, [&](QStringView other) { return name.compare(other, Qt::CaseInsensitive) == 0; });
}

/// The schemes whose addresses must have a host.
bool isWebScheme(QStringView scheme) {
    return isOneOf(scheme, {u"http", u"https", u"ftp", u"ws", u"wss"});
}

/// The schemes whose addresses are programs, which nobody should start by a click.
bool isScriptScheme(QStringView scheme) {
    return isOneOf(scheme, {u"javascript", u"vbscript", u"data"});
}

} // namespace

std::optional<DetectedLink> LinkScan::first() {
    qsizetype at = 0;
    while (at < m_text.size()) {
        const char32_t current = character(at);
        std::optional<DetectedLink> found;
        qsizetype next = at + unitsOf(current);
        if (current == U':') {
            found = linkWithScheme(at);
        } else if (current == U'@') {
            found = mailAddress(at);
        } else if (isHostCharacter(current)) {
            next = endOfHostRun(at);
            found = bareDomain({at, next});
        }
        if (found) {
            return found;
        }
        at = std::max(next, m_scannedTo);
    }
    return std::nullopt;
}

std::optional<DetectedLink> LinkScan::linkWithScheme(qsizetype colon) {
    if (unit(colon + 1) != u'/' || unit(colon + 2) != u'/') {
        return std::nullopt;
    }
    const qsizetype start = startOfScheme(colon);
    const QStringView scheme = text({start, colon});
    if (scheme.size() < 2 || scheme.size() > LONGEST_SCHEME || isScriptScheme(scheme)) {
        return std::nullopt;
    }
    const qsizetype from = colon + 3;
    qsizetype end = from;
    if (isWebScheme(scheme)) {
        const std::optional<qsizetype> hostEnd = endOfAuthority(start, from);
        if (!hostEnd) {
            return std::nullopt;
        }
        const char16_t next = unit(*hostEnd);
        end = next == u'/' || next == u'?' || next == u'#' ? endOfPath(start, *hostEnd) : *hostEnd;
    } else {
        end = endOfPath(start, from);
    }
    if (std::ranges::none_of(text({from, end}), [](QChar c) { return c.isLetterOrNumber(); })) {
        return std::nullopt;
    }
    return link({start, end}, QUrl(text({start, end}).toString()));
}

/// A scheme begins later than at the blank before its "://" where a sentence or source code runs into it.
qsizetype LinkScan::startOfScheme(qsizetype colon) {
    qsizetype start = colon;
    while (isSchemeUnit(unit(start - 1))) {
        --start;
    }
    while (start < colon && !isAsciiLetter(unit(start))) {
        ++start;
    }
    // "there.http://…": a sentence's end. Schemes of this kind have no dot, those with a dot do not end in these.
    const QStringView scheme = text({start, colon});
    const qsizetype last = std::max(scheme.lastIndexOf(u'.'), scheme.lastIndexOf(u'-'));
    if (last >= 0 && isWebScheme(scheme.sliced(last + 1))) {
        return start + last + 1;
    }
    // "\nhttp://…" as it stands in source code
    if (unit(start - 1) == u'\\' && scheme.size() > 1 && isWebScheme(scheme.sliced(1))) {
        return start + 1;
    }
    return start;
}

/// The end of [user@]host[:port], nothing when there is no host (RFC 3986, section 3.2).
std::optional<qsizetype> LinkScan::endOfAuthority(qsizetype start, qsizetype from) {
    qsizetype at = from;
    while (at < m_text.size() && isUserInformation(character(at))) {
        at += unitsOf(character(at));
    }
    const qsizetype host = unit(at) == u'@' ? at + 1 : from;
    qsizetype end = host;
    if (unit(host) == u'[') {
        do {
            ++end;
        } while (isNameCharacter(character(end)) || QStringView(u":.%-_~").contains(QChar(unit(end))));
        if (unit(end) != u']') {
            return std::nullopt;
        }
        ++end;
    } else {
        while (end < m_text.size()) {
            const char32_t current = character(end);
            const bool isForeign = current >= 0x80 && !endsAddress(current);
            if (!isHostCharacter(current) && current != U'%' && !isForeign) {
                break;
            }
            end += unitsOf(current);
        }
        end = endBeforeUnspacedText({host, end});
        const char16_t next = unit(end);
        if (next != u'/' && next != u':') { // else a single dot at the end is the root's
            end = withoutTrailingPunctuation(start, host, end);
        }
        if (end == host || end - host > LONGEST_DOMAIN_NAME) {
            return std::nullopt;
        }
    }
    if (unit(end) == u':') {
        end = endOfPort(end).value_or(unit(end + 1) == u'/' ? end + 1 : end);
    }
    const QUrl authority(text({start, end}).toString());
    return authority.isValid() && !authority.host().isEmpty() ? std::optional(end) : std::nullopt;
}

std::optional<qsizetype> LinkScan::endOfPort(qsizetype colon) {
    constexpr int MOST_PORT_DIGITS = 5;
    constexpr int HIGHEST_PORT = 65535;
    qsizetype end = colon + 1;
    int port = 0;
    while (isAsciiDigit(unit(end)) && end - colon <= MOST_PORT_DIGITS) {
        port = port * 10 + (unit(end) - u'0');
        ++end;
    }
    const bool isPort = end > colon + 1 && port <= HIGHEST_PORT && !isNameCharacter(character(end));
    return isPort ? std::optional(end) : std::nullopt;
}

std::optional<DetectedLink> LinkScan::mailAddress(qsizetype atSign) {
    qsizetype start = atSign;
    while (start > 0) {
        const char32_t before = characterBefore(start);
        if (!isNameCharacter(before) && !isMailPunctuation(before)) {
            break;
        }
        start -= unitsOf(before);
    }
    if (const qsizetype dots = text({start, atSign}).lastIndexOf(u".."); dots >= 0) {
        start += dots + 2;
    }
    while (start < atSign && unit(start) != u'_' && !isNameCharacter(character(start))) {
        start += unitsOf(character(start));
    }
    start = startAfterUnspacedText({start, atSign});
    if (start == atSign || atSign - start > LONGEST_MAIL_NAME || unit(atSign - 1) == u'.') {
        return std::nullopt;
    }

    const qsizetype runEnd = endOfHostRun(atSign + 1);
    qsizetype end = endBeforeUnspacedText({atSign + 1, runEnd});
    end = withoutTrailingPunctuation(start, atSign + 1, end);
    if (unit(start) == u'_' && unit(end - 1) == u'_') {
        ++start;
        --end;
    }
    if (!isMailDomain(text({atSign + 1, end}))) {
        return std::nullopt;
    }
    // "git@host.org:path" is a place to copy from, "this@Screen.show()" an expression.
    const char32_t next = character(end);
    const bool isPlace = next == U':' && !endsAddress(character(end + 1));
    if (isPlace || next == U'@' || next == U'(') {
        return std::nullopt;
    }

    constexpr QStringView PREFIX = u"mailto:";
    if (start >= PREFIX.size() && text({start - PREFIX.size(), start}).compare(PREFIX, Qt::CaseInsensitive) == 0) {
        start -= PREFIX.size();
        end = next == U'?' ? endOfPath(start, end) : end;
        return link({start, end}, QUrl(text({start, end}).toString()));
    }
    QUrl address;
    address.setScheme(u"mailto"_s);
    address.setPath(text({start, end}).toString(), QUrl::DecodedMode);
    return link({start, end}, address);
}

std::optional<DetectedLink> LinkScan::bareDomain(Range run) {
    Range domain = withoutUnderscores(run);
    if (!mayBeginDomain(domain.start)) {
        return std::nullopt;
    }
    domain.start = startAfterUnspacedText(domain);
    domain.end = endBeforeUnspacedText(domain);
    const qsizetype runEnd = domain.end;
    domain.end = withoutTrailingPunctuation(domain.start, domain.start, domain.end);
    if (!isLinkWithoutScheme(text(domain)) || isInsideExpression(domain) || belongsToMailAddress(domain.end)) {
        return std::nullopt;
    }
    qsizetype end = domain.end;
    if (end == runEnd) {
        if (unit(end) == u':') {
            end = endOfPort(end).value_or(end);
            if (unit(end) == u':' && end > runEnd) { // "main.rs:10:5", a place in a file
                return std::nullopt;
            }
        }
        if (const char16_t next = unit(end); next == u'/' || next == u'?' || next == u'#') {
            end = endOfPath(domain.start, end);
        }
    }
    return link({domain.start, end}, QUrl(u"http://"_s + text({domain.start, end}).toString()));
}

} // namespace zamber::links
