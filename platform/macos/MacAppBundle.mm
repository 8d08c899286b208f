// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/macos/MacAppBundle.h"

#import <Foundation/Foundation.h>

namespace zamber::macos {

namespace {

std::optional<QString> text(NSString* key) {
    const id value = NSBundle.mainBundle.infoDictionary[key];
    return [value isKindOfClass:NSString.class] ? std::optional(QString::fromNSString(value)) : std::nullopt;
}

} // namespace

QString MacAppBundle::path() const {
    return QString::fromNSString(NSBundle.mainBundle.bundlePath);
}

std::optional<QString> MacAppBundle::version() const {
    return text(@"CFBundleShortVersionString");
}

std::optional<QString> MacAppBundle::build() const {
    return text(@"CFBundleVersion");
}

} // namespace zamber::macos
