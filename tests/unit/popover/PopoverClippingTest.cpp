// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "preferences/PreferenceKeys.h"

#include "tests/unit/popover/PopoverGeometryFixture.h"

namespace zamber::popover {

/// The popover's sizes, each with the longest texts that it may have to show.
class PopoverClippingTest : public PopoverGeometryTest, public testing::WithParamInterface<const char*> {};

TEST_P(PopoverClippingTest, NoTextReachesBeyondItsPlace) {
    stage.defaults.setString(preferences::popoverSize.name, QString::fromLatin1(GetParam()));
    stage.defaults.setInteger(preferences::maxItems.name, 100000);
    stage.copyText("https://a-rather-long-name-of-a-host.in-some-department.example.org/with/a/path");
    stage.manager->togglePin(stage.manager->items()[0]);
    stage.copyText(QByteArray("many\n").repeated(100000));
    stage.copyText(QByteArray("wide words all over the place ").repeated(40));
    stage.copyText(QByteArray(400, 'W'));
    stage.scheduler.advance(std::chrono::hours(24 * 11));
    for (int number = 0; number < 60; ++number) {
        stage.copyText("text " + QByteArray::number(number));
    }
    open();
    stage.view->setUpdateNotice(UpdateNotice{u"10.12.144"_s, [] {}, [] {}});
    for (int row = 0; row < 8; ++row) {
        stage.keyMonitor.press(HardwareKey::DownArrow);
        QTest::qWait(0);
        look();
        for (const Painted& one : painted) {
            if (one.kind != Kind::Fill) {
                EXPECT_GE(one.place.left(), 14) << one.what.toStdString();
                EXPECT_LE(one.place.right(), stage.view->width() - 14 + 0.5) << one.what.toStdString();
            }
        }
        // No two things in the same line overlap.
        for (qsizetype index = 0; index < painted.size(); ++index) {
            for (qsizetype other = index + 1; other < painted.size(); ++other) {
                const Painted& one = painted[index];
                const Painted& two = painted[other];
                const bool bothShow =
                    one.kind != Kind::Fill && two.kind != Kind::Fill && !one.what.isEmpty() && !two.what.isEmpty();
                if (bothShow && !one.visiblePart.isEmpty() && !two.visiblePart.isEmpty()) {
                    EXPECT_FALSE(one.visiblePart.adjusted(0.5, 1, -0.5, -1)
                                     .intersects(two.visiblePart.adjusted(0.5, 1, -0.5, -1)))
                        << one.what.toStdString() << " and " << two.what.toStdString();
                }
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Sizes, PopoverClippingTest, testing::Values("compact", "normal", "large"),
                         [](const auto& size) { return std::string(size.param); });

TEST(PopoverSymbols, EveryOneIsDrawnAndLooksDifferentFromEveryOther) {
    const freedesktop::BootstrapSymbols symbols;
    QHash<QString, QImage> seen;
    for (const QString& name :
         {u"clipboard.fill"_s, u"gearshape.fill"_s, u"arrow.down.circle.fill"_s, u"xmark"_s, u"magnifyingglass"_s,
          u"xmark.circle.fill"_s, u"clipboard"_s, u"pin.fill"_s, u"clock"_s, u"trash"_s, u"lock.fill"_s, u"link"_s,
          u"photo"_s, u"doc.text"_s, u"safari"_s, u"pin"_s, u"pin.slash.fill"_s}) {
        for (const double ratio : {1.0, 1.5, 2.0}) {
            const QImage image = symbols.pixmap(name, {10, QFont::Medium, Qt::black, ratio})
                                     .toImage()
                                     .convertToFormat(QImage::Format_ARGB32);
            ASSERT_EQ(image.width(), std::ceil(12 * ratio)) << name.toStdString();
            int inked = 0;
            for (int y = 0; y < image.height(); ++y) {
                for (int x = 0; x < image.width(); ++x) {
                    inked += qAlpha(image.pixel(x, y)) > 128 ? 1 : 0;
                }
            }
            EXPECT_GT(inked, image.width() * image.height() / 20) << name.toStdString();
            EXPECT_LT(inked, image.width() * image.height()) << name.toStdString();
            const QString key = seen.key(image);
            EXPECT_TRUE(key.isEmpty()) << name.toStdString() << " looks like " << key.toStdString();
            seen.insert(name + QString::number(ratio), image);
        }
    }
}

TEST(PopoverSymbols, AHeavierWeightHasMoreInkAndALightOneLess) {
    const freedesktop::BootstrapSymbols symbols;
    const auto ink = [&](QFont::Weight weight) {
        const QImage image = symbols.pixmap(u"clipboard"_s, {32, weight, Qt::black, 2}).toImage();
        qint64 sum = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                sum += image.pixelColor(x, y).alpha();
            }
        }
        return sum;
    };
    EXPECT_LT(ink(QFont::Light), ink(QFont::Normal));
    EXPECT_LT(ink(QFont::Normal), ink(QFont::Medium));
    EXPECT_LT(ink(QFont::Medium), ink(QFont::DemiBold));
    EXPECT_LT(ink(QFont::DemiBold), ink(QFont::Bold));
}

} // namespace zamber::popover
