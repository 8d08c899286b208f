// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/macos/MacApplicationSupport.h"

#import <Foundation/Foundation.h>

#include <cstdio>
#include <cstdlib>

namespace zamber::macos {

std::filesystem::path applicationSupportFolder() {
    NSURL* const folder = [NSFileManager.defaultManager URLsForDirectory:NSApplicationSupportDirectory
                                                               inDomains:NSUserDomainMask]
                              .firstObject;
    if (folder == nil) {
        std::fputs("zamber: there is no application-support folder\n", stderr);
        std::abort();
    }
    return folder.fileSystemRepresentation;
}

} // namespace zamber::macos
