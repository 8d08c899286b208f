// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/selection/SelectionTypes.h"

#include "text/Utf8.h"

#include "platform/freedesktop/selection/SelectionText.h"

#include <algorithm>
#include <array>

namespace zamber::freedesktop::selection {

namespace {

/// As Calc, Writer, Gnumeric, AbiWord and their like offer them, in lower case; what follows a semicolon varies. The
/// formats of drawings and charts are not among them: their pictures are pictures.
constexpr std::array<QByteArrayView, 20> DOCUMENT_TYPES{
    "text/rtf",
    "text/richtext",
    "application/rtf",
    "application/x-rtf",
    "rich text format",
    "text/csv",
    "text/comma-separated-values",
    "text/tab-separated-values",
    "application/csv",
    "application/msword",
    "application/vnd.ms-excel",
    "application/vnd.oasis.opendocument.spreadsheet",
    "application/vnd.oasis.opendocument.text",
    "application/vnd.openxmlformats-officedocument.spreadsheetml.sheet",
    "application/vnd.openxmlformats-officedocument.wordprocessingml.document",
    "application/x-gnumeric",
    "application/x-libreoffice-tsvc",
    "application/x-openoffice-dif",
    "application/x-openoffice-sylk",
    "biff8",
};

bool isAmong(const auto& types, QByteArrayView type) {
    return std::ranges::find(types, type) != types.end();
}

} // namespace

bool saysSecret(QByteArrayView hint) {
    return hint == "secret";
}

bool isImageType(QByteArrayView type) {
    return isAmong(IMAGE_TYPES, type);
}

bool isDocumentType(QByteArrayView type) {
    const qsizetype semicolon = type.indexOf(';');
    const QByteArray name = (semicolon < 0 ? type : type.first(semicolon)).trimmed().toByteArray().toLower();
    return isAmong(DOCUMENT_TYPES, name);
}

bool saysCut(QByteArrayView type, QByteArrayView bytes) {
    if (type == TYPE_KDE_CUT_MARK) {
        return bytes.startsWith('1');
    }
    return isAmong(FILE_MANAGER_TYPES, type) && bytes.startsWith("cut");
}

std::optional<QByteArray> textOf(const QByteArray& type, const QByteArray& bytes) {
    // Some programs count the end of their string in.
    const QByteArray text = bytes.endsWith('\0') ? bytes.chopped(1) : bytes;
    if (type == TYPE_STRING) {
        return utf8FromLatin1(text);
    }
    if (isAmong(TEXT_TYPES, type) && type != TYPE_TEXT) {
        return text::repairedUtf8(text);
    }
    // A name without an encoding says nothing, an empty answer may have no type at all.
    return text.isEmpty() ? std::optional(QByteArray()) : std::nullopt;
}

} // namespace zamber::freedesktop::selection
