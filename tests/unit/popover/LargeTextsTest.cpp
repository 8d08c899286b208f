// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "popover/LargeTexts.h"

#include "preferences/PreferenceKeys.h"

#include "tests/unit/popover/ClipboardListViewFixture.h"

#include <QAccessible>
#include <QSignalSpy>

namespace zamber::popover {

namespace {

const QByteArray LARGE = QByteArray("password is what this line is about\n").repeated(1'000'000);

} // namespace

TEST(LargeTexts, AShortTextAndAnImageNeedNoMeasuring) {
    LargeTexts texts;
    EXPECT_TRUE(texts.isMeasured(clipboard::ClipboardItem(clipboard::ClipboardContent::text("short"), 0)));
    EXPECT_TRUE(texts.isMeasured(clipboard::ClipboardItem(clipboard::ClipboardContent::image(LARGE), 0)));
}

TEST(LargeTexts, ALargeTextIsMeasuredOnceOnAnotherThread) {
    LargeTexts texts;
    QSignalSpy measured(&texts, &LargeTexts::measured);
    const clipboard::ClipboardItem item(clipboard::ClipboardContent::text(LARGE), 0);
    EXPECT_FALSE(texts.isMeasured(item));
    EXPECT_FALSE(texts.isMeasured(item));
    EXPECT_TRUE(QTest::qWaitFor([&] { return texts.isMeasured(item); }, 20'000));
    EXPECT_EQ(measured.count(), 1);
    EXPECT_EQ(item.content.lineCount(), 1'000'000);
}

TEST(LargeTexts, OneThatIsForgottenMeanwhileIsNotTold) {
    LargeTexts texts;
    const clipboard::ClipboardItem gone(clipboard::ClipboardContent::text(LARGE), 0);
    const clipboard::ClipboardItem kept(clipboard::ClipboardContent::text(LARGE + "x"), 0);
    EXPECT_FALSE(texts.isMeasured(gone));
    EXPECT_FALSE(texts.isMeasured(kept));
    QSignalSpy measured(&texts, &LargeTexts::measured);
    texts.keepOnly({kept});
    EXPECT_TRUE(QTest::qWaitFor([&] { return texts.isMeasured(kept); }, 20'000));
    EXPECT_EQ(measured.count(), 1);
}

using LargeTextInTheListTest = ClipboardListViewTest;

TEST_F(LargeTextInTheListTest, ItsCountsComeWhenTheyAreKnown) {
    stage.copyText(LARGE);
    stage.copyText("short");
    open();
    const int before = stage.list().rowRectangle(1).height();
    EXPECT_TRUE(QTest::qWaitFor([&] { return stage.list().rowRectangle(1).height() > before; }, 20'000));
    EXPECT_TRUE(stage.list().describe(1).contains(u"1000000 lines"_s));
}

TEST_F(LargeTextInTheListTest, NothingOfItIsShownUntilItIsKnownWhetherItIsSensitive) {
    write(stage.defaults, preferences::hideSensitive, true);
    stage.copyText(LARGE);
    stage.copyText("short");
    open();
    EXPECT_EQ(stage.list().preview(1), QString());
    EXPECT_TRUE(QTest::qWaitFor([&] { return !stage.list().preview(1).isEmpty(); }, 20'000));
    EXPECT_EQ(stage.list().preview(1), u"●●●●●●●●●●●●"_s);
}

} // namespace zamber::popover
