// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/macos/MacBundleFiles.h"

#import <Foundation/Foundation.h>

namespace zamber::macos {

namespace {

std::expected<void, QString> outcome(BOOL succeeded, NSError* error) {
    if (succeeded) {
        return {};
    }
    return std::unexpected(QString::fromNSString(error.localizedDescription));
}

} // namespace

MacBundleFiles::MacBundleFiles(const QString& root)
    : m_root(root) {}

bool MacBundleFiles::exists(const QString& path) const {
    NSString* const here = (m_root + path).toNSString();
    return [NSFileManager.defaultManager attributesOfItemAtPath:here error:nil] != nil; // does not follow a link
}

std::expected<void, QString> MacBundleFiles::remove(const QString& path) {
    NSError* error = nil;
    const BOOL succeeded = [NSFileManager.defaultManager removeItemAtPath:(m_root + path).toNSString() error:&error];
    return outcome(succeeded, error);
}

std::expected<void, QString> MacBundleFiles::copy(const QString& source, const QString& destination) {
    const bool wasThere = exists(destination);
    NSError* error = nil;
    const BOOL succeeded = [NSFileManager.defaultManager copyItemAtPath:(m_root + source).toNSString()
                                                                 toPath:(m_root + destination).toNSString()
                                                                  error:&error];
    if (!succeeded && !wasThere) {
        remove(destination); // the part that was copied before the failure
    }
    return outcome(succeeded, error);
}

} // namespace zamber::macos
