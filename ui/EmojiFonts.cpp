// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "ui/EmojiFonts.h"

#include "text/EmojiRuns.h"

#include <QFontDatabase>
#include <QRawFont>
#include <QStringList>
#include <QTextCharFormat>

#include <algorithm>

namespace zamber::ui {

using namespace Qt::StringLiterals;

namespace {

bool isColoured(const QString& family) {
    const QRawFont font = QRawFont::fromFont(QFont(family));
    return std::ranges::any_of(std::initializer_list<const char*>{"CBDT", "sbix", "COLR", "SVG "},
                               [&font](const char* table) { return !font.fontTable(table).isEmpty(); });
}

struct Families {
    QStringList coloured;
    QStringList monochrome; ///< that have many symbols
};

Families installedFamilies() {
    Families found;
    const QStringList symbols{u"DejaVu Sans"_s,        u"Noto Sans Symbols"_s, u"Noto Sans Symbols 2"_s,
                              u"Noto Sans Symbols2"_s, u"Symbola"_s,           u"Apple Symbols"_s,
                              u"Segoe UI Symbol"_s,    u"Noto Emoji"_s,        u"FreeSans"_s};
    // Well-drawn ones that everybody knows come first.
    QStringList pictures{u"Apple Color Emoji"_s, u"Noto Color Emoji"_s, u"Twemoji Mozilla"_s, u"JoyPixels"_s};
    for (const QString& family : QFontDatabase::families()) {
        if (family.contains(u"emoji"_s, Qt::CaseInsensitive) && !pictures.contains(family)) {
            pictures.append(family);
        }
    }
    for (const QString& family : std::as_const(pictures)) {
        if (QFontDatabase::hasFamily(family) && isColoured(family)) {
            found.coloured.append(family);
        }
    }
    for (const QString& family : symbols) {
        if (QFontDatabase::hasFamily(family) && !found.coloured.contains(family)) {
            found.monochrome.append(family);
        }
    }
    return found;
}

QTextCharFormat formatOf(const QStringList& families) {
    QTextCharFormat format;
    format.setFontFamilies(families);
    return format;
}

} // namespace

QList<QTextLayout::FormatRange> emojiFormats(const QString& text, const QFont& font) {
    const auto runs = text::emojiRuns({reinterpret_cast<const char16_t*>(text.utf16()), std::size_t(text.size())});
    if (runs.empty()) {
        return {};
    }
    // Asked for when the first one is seen: reading a font of pictures takes a while.
    static const Families families = installedFamilies();
    const QStringList letters = font.families() + families.monochrome;
    const QTextCharFormat asText = formatOf(letters);
    const QTextCharFormat asPicture = formatOf(families.coloured + letters);

    QList<QTextLayout::FormatRange> formats;
    for (const text::EmojiRun& run : runs) {
        formats.append({static_cast<int>(run.start), static_cast<int>(run.length),
                        run.form == text::EmojiForm::Picture ? asPicture : asText});
    }
    return formats;
}

QString withKeycapsJoined(QString text) {
    return text.replace(u"\uFE0F\u20E3"_s, u"\u20E3\uFE0F"_s);
}

} // namespace zamber::ui
