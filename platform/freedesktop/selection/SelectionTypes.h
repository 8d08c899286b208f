// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <array>
#include <optional>

namespace zamber::freedesktop::selection {

/// The types that selections are offered and asked for in: MIME types, and the few names of X that are older than
/// those. Wayland's programs use the same. Names are compared as they are, letter by letter.

constexpr QByteArrayView TYPE_UTF8_STRING = "UTF8_STRING";
constexpr QByteArrayView TYPE_STRING = "STRING"; ///< ISO 8859-1
constexpr QByteArrayView TYPE_TEXT = "TEXT";     ///< in an encoding that the answer's own type tells
constexpr QByteArrayView TYPE_TEXT_PLAIN = "text/plain";
constexpr QByteArrayView TYPE_TEXT_PLAIN_UTF8 = "text/plain;charset=utf-8";
constexpr QByteArrayView TYPE_TEXT_PLAIN_UTF8_CAPITALS = "text/plain;charset=UTF-8";

constexpr QByteArrayView TYPE_PNG = "image/png";
constexpr QByteArrayView TYPE_TIFF = "image/tiff";
constexpr QByteArrayView TYPE_BMP = "image/bmp";

/// The image types that can be read, from the best to the last resort. TIFF is what programs here encode largest; the
/// others need converting.
constexpr std::array<QByteArrayView, 7> IMAGE_TYPES{TYPE_PNG, TYPE_TIFF,     "image/jpeg",    "image/webp",
                                                    TYPE_BMP, "image/x-bmp", "image/x-MS-bmp"};

/// The text types that can be read, from the exact to the vague.
constexpr std::array<QByteArrayView, 6> TEXT_TYPES{
    TYPE_UTF8_STRING, TYPE_TEXT_PLAIN_UTF8, TYPE_TEXT_PLAIN_UTF8_CAPITALS, TYPE_STRING, TYPE_TEXT_PLAIN, TYPE_TEXT};

constexpr QByteArrayView TYPE_URI_LIST = "text/uri-list";
constexpr QByteArrayView TYPE_KDE_CUT_MARK = "application/x-kde-cutselection";

/// Lists of files of GNOME's file manager and its relatives: the word "copy" or "cut", then an address a line.
constexpr std::array<QByteArrayView, 2> FILE_MANAGER_TYPES{"x-special/gnome-copied-files",
                                                           "x-special/mate-copied-files"};

/// The type that marks a password manager's copy.
constexpr QByteArrayView TYPE_PASSWORD_MANAGER_HINT = "x-kde-passwordManagerHint";

/// Whether the hint says that the copy is to be kept nowhere. Some programs put other values there, meaning no secret.
bool saysSecret(QByteArrayView hint);

/// Is it an image type that can be read?
bool isImageType(QByteArrayView type);

/// Is it a spreadsheet's or a text processor's own type? Offered beside a text, it tells that a picture offered as well
/// is one of that text.
bool isDocumentType(QByteArrayView type);

/// Do the bytes, in one of the types of file managers, tell of files that are to be moved rather than copied?
bool saysCut(QByteArrayView type, QByteArrayView bytes);

/// The text in UTF-8, by the encoding that the answer's type names; nothing when it names none.
std::optional<QByteArray> textOf(const QByteArray& type, const QByteArray& bytes);

} // namespace zamber::freedesktop::selection
