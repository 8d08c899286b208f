// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/links/LinkCharacters.h"
#include "platform/links/LinkScan.h"

#include <QVarLengthArray>

#include <algorithm>

namespace zamber::links {

// Where the parts of a link end: the half of the scan that reads characters and knows nothing of links.

namespace {

char16_t openingOf(char32_t closing) {
    return closing == U')' ? u'(' : closing == U']' ? u'[' : u'{';
}

} // namespace

char16_t LinkScan::unit(qsizetype at) const {
    return at >= 0 && at < m_text.size() ? m_text[at].unicode() : u'\0';
}

char32_t LinkScan::character(qsizetype at) const {
    const char16_t first = unit(at);
    if (QChar::isHighSurrogate(first)) {
        if (const char16_t second = unit(at + 1); QChar::isLowSurrogate(second)) {
            return QChar::surrogateToUcs4(first, second);
        }
    }
    return first;
}

char32_t LinkScan::characterBefore(qsizetype at) const {
    const char16_t second = unit(at - 1);
    if (QChar::isLowSurrogate(second)) {
        if (const char16_t first = unit(at - 2); QChar::isHighSurrogate(first)) {
            return QChar::surrogateToUcs4(first, second);
        }
    }
    return second;
}

std::optional<DetectedLink> LinkScan::link(Range range, const QUrl& address) {
    if (!address.isValid() || address.isEmpty()) {
        return std::nullopt;
    }
    return DetectedLink{.start = range.start, .length = range.end - range.start, .address = address};
}

qsizetype LinkScan::endOfHostRun(qsizetype from) {
    qsizetype end = from;
    while (end < m_text.size()) {
        const char32_t current = character(end);
        if (current != U'.' && current != U'-' && current != U'_' && !isNameCharacter(current)) {
            break;
        }
        end += unitsOf(current);
    }
    return end;
}

/// "请访问example.com": a run that begins in an unspaced script and goes on in another has its name in the latter. A
/// run that is in an unspaced script altogether is a name.
qsizetype LinkScan::startAfterUnspacedText(Range run) {
    qsizetype at = run.start;
    qsizetype start = run.start;
    bool isAfterUnspaced = false;
    while (at < run.end) {
        const char32_t current = character(at);
        const bool isUnspaced = isOfUnspacedScript(current);
        if (isAfterUnspaced && !isUnspaced && isNameCharacter(current)) {
            start = at;
        }
        if (!isNameCharacter(current)) {
            break;
        }
        isAfterUnspaced = isUnspaced;
        at += unitsOf(current);
    }
    return start;
}

/// "example.com에서": a last label that begins in another script ends where the unspaced one begins.
qsizetype LinkScan::endBeforeUnspacedText(Range run) {
    qsizetype label = run.end;
    while (label > run.start && unit(label - 1) != u'.') {
        --label;
    }
    qsizetype at = label;
    while (at < run.end) {
        const char32_t current = character(at);
        if (isOfUnspacedScript(current)) {
            return at == label || label == run.start ? run.end : at;
        }
        at += unitsOf(current);
    }
    return run.end;
}

/// The underscores of an emphasis are no part of the name: _example.com_
LinkScan::Range LinkScan::withoutUnderscores(Range run) {
    while (run.end - run.start > 2 && unit(run.start) == u'_' && unit(run.end - 1) == u'_') {
        ++run.start;
        --run.end;
    }
    return run;
}

/// The end of path, query and fragment: before a blank or a bracket that was opened outside, and with every bracket
/// closed that was opened inside.
qsizetype LinkScan::endOfPath(qsizetype start, qsizetype from) {
    const bool isQuoted = unit(start - 1) == u'\'';
    QVarLengthArray<qsizetype> openBrackets;
    qsizetype end = from;
    while (end < m_text.size()) {
        const char32_t current = character(end);
        if (endsAddress(current) || (current == U'\'' && isQuoted)) {
            break;
        }
        if (current == U'(' || current == U'[' || current == U'{') {
            openBrackets.append(end);
        } else if (current == U')' || current == U']' || current == U'}') {
            if (openBrackets.isEmpty() || unit(openBrackets.last()) != openingOf(current)) {
                break;
            }
            openBrackets.removeLast();
        }
        end += unitsOf(current);
    }
    m_scannedTo = end;
    if (!openBrackets.isEmpty()) {
        end = openBrackets.first();
    }
    return withoutTrailingPunctuation(start, from, end);
}

/// Cuts off the punctuation of the sentence around the link, but nothing before `least`.
qsizetype LinkScan::withoutTrailingPunctuation(qsizetype start, qsizetype least, qsizetype end) {
    const char16_t before = unit(start - 1);
    const bool isEmphasized = before == u'_' || before == u'~';
    while (end > least) {
        const char16_t last = unit(end - 1);
        if (last == u';') { // the end of "&gt;" is not the link's either
            qsizetype entity = end - 1;
            while (entity > least && QChar::isLetterOrNumber(unit(entity - 1))) {
                --entity;
            }
            const bool isEntity = entity > least && entity < end - 1 && unit(entity - 1) == u'&';
            end = isEntity ? entity - 1 : end - 1;
        } else if (QStringView(u".,:!?'*").contains(QChar(last)) || (isEmphasized && last == before)) {
            --end;
        } else {
            break;
        }
    }
    return end;
}

} // namespace zamber::links
