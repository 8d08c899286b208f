// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/macos/MacLinkDetector.h"

#import <Foundation/Foundation.h>

namespace zamber::macos {

std::optional<DetectedLink> MacLinkDetector::firstLink(const QString& text) {
    static NSDataDetector* const detector = [NSDataDetector dataDetectorWithTypes:NSTextCheckingTypeLink error:nil];
    NSString* const string = text.toNSString();
    NSTextCheckingResult* const match = [detector firstMatchInString:string
                                                             options:0
                                                               range:NSMakeRange(0, string.length)];
    if (match.URL == nil) {
        return std::nullopt;
    }
    return DetectedLink{.start = static_cast<qsizetype>(match.range.location),
                        .length = static_cast<qsizetype>(match.range.length),
                        .address = QUrl::fromNSURL(match.URL)};
}

} // namespace zamber::macos
