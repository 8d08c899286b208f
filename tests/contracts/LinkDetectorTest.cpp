// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/links/ScannerLinkDetector.h"
#include "tests/contracts/LinkDetectorContract.h"
#include "tests/fakes/FakeLinkDetector.h"

namespace zamber {

namespace {

struct FakeLinkDetectorRig {
    FakeLinkDetector fake;

    FakeLinkDetectorRig() {
        fake.links = {
            {QStringLiteral("https://example.com/a?b=c#d"), QUrl(QStringLiteral("https://example.com/a?b=c#d"))},
            {QStringLiteral("example.org"), QUrl(QStringLiteral("http://example.org"))},
            {QStringLiteral("jane@example.net"), QUrl(QStringLiteral("mailto:jane@example.net"))},
        };
    }
    LinkDetector& detector() { return fake; }
};

struct ScannerLinkDetectorRig {
    links::ScannerLinkDetector real;

    LinkDetector& detector() { return real; }
};

} // namespace

INSTANTIATE_TYPED_TEST_SUITE_P(Fake, LinkDetectorContract, FakeLinkDetectorRig);
INSTANTIATE_TYPED_TEST_SUITE_P(Scanner, LinkDetectorContract, ScannerLinkDetectorRig);

} // namespace zamber
