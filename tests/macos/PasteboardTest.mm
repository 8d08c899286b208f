// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT

// Calls, values and order: the pasteboard.

#include "platform/macos/MacPasteboard.h"
#include "tests/macos/System.h"

#import <AppKit/AppKit.h>
#include <gmock/gmock.h>

namespace zamber {

namespace {

using system::callsDuring;
using testing::ElementsAre;

} // namespace

TEST(Recorded, ThePasteboardIsAskedForTheTypesByTheirNames) {
    macos::MacPasteboard pasteboard;
    const int before = pasteboard.changeCount();
    system::copyTextElsewhere(QStringLiteral("theirs"));
    EXPECT_EQ(pasteboard.changeCount(), before + 1);
    EXPECT_THAT(callsDuring([&] {
                    EXPECT_TRUE(!pasteboard.data(ImageType::Tiff));
                    EXPECT_TRUE(!pasteboard.data(ImageType::Png));
                    EXPECT_EQ(pasteboard.string(), "theirs");
                }),
                ElementsAre("NSPasteboard dataForType: public.tiff", "NSPasteboard dataForType: public.png",
                            "NSPasteboard stringForType: public.utf8-plain-text"));
    EXPECT_THAT(callsDuring([&] {
                    pasteboard.clearContents();
                    pasteboard.setString("text");
                    pasteboard.setData(ImageType::Tiff, "bytes");
                    pasteboard.setData(ImageType::Png, "png");
                }),
                ElementsAre("NSPasteboard clearContents",
                            "NSPasteboard setString: 4 characters forType: public.utf8-plain-text",
                            "NSPasteboard setData: 5 bytes forType: public.tiff",
                            "NSPasteboard setData: 3 bytes forType: public.png"));
    EXPECT_EQ(pasteboard.changeCount(), before + 2);
}

TEST(Recorded, ATextKeepsTheCharacterThatLooksLikeAByteOrderMark) {
    macos::MacPasteboard pasteboard;
    for (const QByteArray& text : {QByteArray("\xEF\xBB\xBFmarked"), QByteArray("in the \xEF\xBB\xBF middle")}) {
        pasteboard.clearContents();
        pasteboard.setString(text);
        EXPECT_EQ(pasteboard.string(), text);
    }
}

} // namespace zamber
