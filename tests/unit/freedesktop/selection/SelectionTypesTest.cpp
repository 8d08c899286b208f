// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/selection/SelectionTypes.h"

#include <gtest/gtest.h>

namespace zamber::freedesktop::selection {

namespace {

TEST(SelectionTypes, OnlyTheVeryWordIsASecret) {
    EXPECT_TRUE(saysSecret("secret"));
    for (const auto& hint : {QByteArray(), QByteArray("Secret"), QByteArray("secret\n"), QByteArray("secret\0", 7),
                             QByteArray("public"), QByteArray("1")}) {
        EXPECT_FALSE(saysSecret(hint)) << hint.toStdString();
    }
}

struct DocumentRow {
    const char* type;
    bool isDocument;
};

void PrintTo(const DocumentRow& row, std::ostream* out) {
    *out << row.type;
}

class DocumentTypeTest : public testing::TestWithParam<DocumentRow> {};

TEST_P(DocumentTypeTest, IsToldByItsName) {
    EXPECT_EQ(isDocumentType(GetParam().type), GetParam().isDocument) << GetParam().type;
}

INSTANTIATE_TEST_SUITE_P(
    Rows, DocumentTypeTest,
    testing::Values(DocumentRow{"text/rtf", true}, DocumentRow{"text/richtext", true}, DocumentRow{"text/csv", true},
                    DocumentRow{"text/csv;charset=utf-8", true}, DocumentRow{"Text/RTF", true},
                    DocumentRow{"application/vnd.oasis.opendocument.text", true},
                    DocumentRow{"application/vnd.oasis.opendocument.spreadsheet", true},
                    DocumentRow{"application/x-openoffice-sylk;windows_formatname=\"Sylk\"", true},
                    DocumentRow{"application/x-libreoffice-tsvc", true}, DocumentRow{"application/x-gnumeric", true},
                    DocumentRow{"Biff8", true}, DocumentRow{"Rich Text Format", true},
                    DocumentRow{"application/vnd.oasis.opendocument.graphics", false},
                    DocumentRow{"application/x-openoffice-bitmap;windows_formatname=\"Bitmap\"", false},
                    DocumentRow{"text/html", false}, DocumentRow{"text/plain", false},
                    DocumentRow{"UTF8_STRING", false}, DocumentRow{"text/uri-list", false},
                    DocumentRow{"text/x-moz-url", false}, DocumentRow{"image/png", false},
                    DocumentRow{"text/rtfd", false}, DocumentRow{"", false}, DocumentRow{";", false}));

TEST(SelectionTypes, ACutIsToldFromACopyByTheMarksOfFileManagers) {
    EXPECT_TRUE(saysCut("x-special/gnome-copied-files", "cut\nfile:///a"));
    EXPECT_TRUE(saysCut("x-special/mate-copied-files", "cut\nfile:///a"));
    EXPECT_TRUE(saysCut("application/x-kde-cutselection", "1"));
    EXPECT_FALSE(saysCut("x-special/gnome-copied-files", "copy\nfile:///cut"));
    EXPECT_FALSE(saysCut("application/x-kde-cutselection", "0"));
    EXPECT_FALSE(saysCut("application/x-kde-cutselection", ""));
    EXPECT_FALSE(saysCut("text/uri-list", "cut"));
}

TEST(SelectionTypes, ATextIsReadByTheEncodingThatItsTypeNames) {
    const QByteArray both = "\xC3\xA9";
    EXPECT_EQ(textOf("STRING", both), "Ã©");
    for (const char* name : {"UTF8_STRING", "text/plain;charset=utf-8", "text/plain;charset=UTF-8", "text/plain"}) {
        EXPECT_EQ(textOf(name, both), "é") << name;
        EXPECT_EQ(textOf(name, "\xE9!"), "\uFFFD!") << name;
    }
    for (const char* name : {"TEXT", "image/png", "COMPOUND_TEXT", ""}) {
        EXPECT_EQ(textOf(name, both), std::nullopt) << name;
        EXPECT_EQ(textOf(name, ""), "") << name;
    }
}

TEST(SelectionTypes, TheEndOfAStringIsNoPartOfTheText) {
    EXPECT_EQ(textOf("UTF8_STRING", QByteArray("words\n\0", 7)), "words\n");
    EXPECT_EQ(textOf("STRING", QByteArray("\xE9\0", 2)), "é");
    EXPECT_EQ(textOf("UTF8_STRING", QByteArray("a\0b", 3)), QByteArray("a\0b", 3));
    EXPECT_EQ(textOf("UTF8_STRING", QByteArray("a\0\0", 3)), QByteArray("a\0", 2));
}

} // namespace

} // namespace zamber::freedesktop::selection
