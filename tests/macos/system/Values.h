// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#import <Foundation/Foundation.h>

#include <string>

@interface NSString (Qt)
- (QString)qtText;
@end

/// For the stand-ins among themselves.
namespace zamber::system {

NSString* text(const QString& text);
NSError* error(const char* domain, int code, const QString& description);
std::string words(NSString* text); ///< for a note

} // namespace zamber::system
