// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/LinkDetector.h"

#include <gtest/gtest.h>

#include <concepts>

namespace zamber {

/// What every desktop's detector agrees on. A rig of one that has to be told its links tells it those of the cases.
template <class Rig>
concept LinkDetectorRig = std::default_initializable<Rig> && requires(Rig rig) {
    { rig.detector() } -> std::same_as<LinkDetector&>;
};

template <LinkDetectorRig Rig>
class LinkDetectorContract : public testing::Test {
protected:
    Rig rig;

    /// The text of the first link and its address, with an arrow between; empty without a link.
    QString found(const QString& text) {
        const std::optional<DetectedLink> link = rig.detector().firstLink(text);
        return link ? text.mid(link->start, link->length) + QStringLiteral(" -> ") + link->address.toString()
                    : QString();
    }
};

TYPED_TEST_SUITE_P(LinkDetectorContract);

TYPED_TEST_P(LinkDetectorContract, ATextWithoutALinkHasNone) {
    EXPECT_EQ(this->found(QString()), QString());
    EXPECT_EQ(this->found(QStringLiteral("Nothing to open here.")), QString());
}

TYPED_TEST_P(LinkDetectorContract, AnAddressIsALinkWithoutTheSentenceAroundIt) {
    EXPECT_EQ(this->found(QStringLiteral("See (https://example.com/a?b=c#d).")),
              QStringLiteral("https://example.com/a?b=c#d -> https://example.com/a?b=c#d"));
}

TYPED_TEST_P(LinkDetectorContract, ANameWithoutASchemeOpensByHttp) {
    EXPECT_EQ(this->found(QStringLiteral("It is on example.org, too")),
              QStringLiteral("example.org -> http://example.org"));
}

TYPED_TEST_P(LinkDetectorContract, AMailAddressOpensByMailtoAndHasNoHost) {
    const QString text = QStringLiteral("Write to jane@example.net!");
    EXPECT_EQ(this->found(text), QStringLiteral("jane@example.net -> mailto:jane@example.net"));
    const std::optional<DetectedLink> link = this->rig.detector().firstLink(text);
    ASSERT_TRUE(link);
    EXPECT_EQ(link->address.host(), QString());
}

TYPED_TEST_P(LinkDetectorContract, TheFirstOfSeveralLinksIsFound) {
    EXPECT_EQ(this->found(QStringLiteral("example.org or https://example.com/a?b=c#d")),
              QStringLiteral("example.org -> http://example.org"));
    EXPECT_EQ(this->found(QStringLiteral("https://example.com/a?b=c#d or example.org")),
              QStringLiteral("https://example.com/a?b=c#d -> https://example.com/a?b=c#d"));
}

TYPED_TEST_P(LinkDetectorContract, TheRangeCountsUtf16Units) {
    const std::optional<DetectedLink> link = this->rig.detector().firstLink(QStringLiteral("🎉 example.org"));
    ASSERT_TRUE(link);
    EXPECT_EQ(link->start, 3);
    EXPECT_EQ(link->length, 11);
}

REGISTER_TYPED_TEST_SUITE_P(LinkDetectorContract, ATextWithoutALinkHasNone, AnAddressIsALinkWithoutTheSentenceAroundIt,
                            ANameWithoutASchemeOpensByHttp, AMailAddressOpensByMailtoAndHasNoHost,
                            TheFirstOfSeveralLinksIsFound, TheRangeCountsUtf16Units);

} // namespace zamber
