// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "Values.h"

#include "tests/macos/System.h"

#include <QRegularExpression>
#include <QUrl>

#import <AppKit/AppKit.h>
#import <ApplicationServices/ApplicationServices.h>
#import <ServiceManagement/ServiceManagement.h>

// Sound, the login item and links. What links there are in a text is the system's to say; the cases of the contract
// are those on which all desktops agree.
//
// The rules (SMAppService's documentation of registerAndReturnError: and unregisterAndReturnError:, SMErrors.h): what
// is registered already, or is not, is an error; what the user has switched off only the user switches on again.

using namespace zamber::system;

namespace {

bool areSoundsThere = true;
bool isRecordBroken = false;
SMAppServiceStatus loginStatus = SMAppServiceStatusNotRegistered;

constexpr int NOT_PERMITTED = 1;
constexpr int JOB_NOT_FOUND = 6;
constexpr int DENIED_BY_USER = 11;
constexpr int ALREADY_REGISTERED = 12;

} // namespace

@implementation NSSound {
    NSString* _name;
}
+ (NSSound*)soundNamed:(NSString*)name {
    note("NSSound soundNamed: %s", words(name).c_str());
    if (!areSoundsThere || ![name isEqualToString:@"Tink"]) {
        return nil;
    }
    NSSound* const sound = [NSSound new];
    sound->_name = name;
    return sound;
}
- (BOOL)play {
    note("NSSound play");
    return YES;
}
@end

@implementation SMAppService
+ (SMAppService*)mainAppService {
    static SMAppService* const only = [SMAppService new];
    return only;
}
- (SMAppServiceStatus)status {
    note("SMAppService status");
    return loginStatus;
}
- (BOOL)changeTo:(SMAppServiceStatus)status unless:(int)code error:(NSError**)failure {
    const int wrong = isRecordBroken ? NOT_PERMITTED : code;
    if (wrong == 0) {
        loginStatus = status;
    } else if (failure != nullptr) {
        *failure = error("SMAppServiceErrorDomain", wrong, QStringLiteral("Operation not permitted"));
    }
    return wrong == 0;
}
- (BOOL)registerAndReturnError:(NSError**)failure {
    note("SMAppService registerAndReturnError:");
    const int code = loginStatus == SMAppServiceStatusEnabled            ? ALREADY_REGISTERED
                     : loginStatus == SMAppServiceStatusRequiresApproval ? DENIED_BY_USER
                                                                         : 0;
    return [self changeTo:SMAppServiceStatusEnabled unless:code error:failure];
}
- (BOOL)unregisterAndReturnError:(NSError**)failure {
    note("SMAppService unregisterAndReturnError:");
    const int code = loginStatus == SMAppServiceStatusNotRegistered ? JOB_NOT_FOUND : 0;
    return [self changeTo:SMAppServiceStatusNotRegistered unless:code error:failure];
}
@end

@interface NSTextCheckingResult () {
@public
    NSRange _range;
    NSURL* _address;
}
@end

@implementation NSTextCheckingResult
- (NSRange)range {
    return _range;
}
- (NSURL*)URL {
    return _address;
}
@end

@implementation NSDataDetector
+ (NSDataDetector*)dataDetectorWithTypes:(NSTextCheckingTypes)types error:(NSError**)error {
    note("NSDataDetector dataDetectorWithTypes: %#lx", types);
    return [self new];
}
- (NSTextCheckingResult*)firstMatchInString:(NSString*)searched options:(NSUInteger)options range:(NSRange)range {
    note("NSDataDetector firstMatchInString: options: %lu range: %lu, %lu", options, range.location, range.length);
    static const QRegularExpression link(QStringLiteral(
        "(?<mail>[a-z]+@[a-z.]+[a-z])|(?<address>https?://[^\\s)]*[^\\s).,])|(?<name>[a-z]+\\.(org|com))"));
    const auto match =
        link.match(searched.qtText.mid(static_cast<qsizetype>(range.location), static_cast<qsizetype>(range.length)));
    if (!match.hasMatch()) {
        return nil;
    }
    const QString found = match.captured();
    const QString scheme = !match.captured(QStringLiteral("mail")).isEmpty()   ? QStringLiteral("mailto:")
                           : !match.captured(QStringLiteral("name")).isEmpty() ? QStringLiteral("http://")
                                                                               : QString();
    NSTextCheckingResult* const result = [NSTextCheckingResult new];
    result->_range = NSMakeRange(static_cast<NSUInteger>(match.capturedStart()) + range.location,
                                 static_cast<NSUInteger>(match.capturedLength()));
    result->_address = [NSURL URLWithString:text(scheme + found)];
    return result;
}
@end

namespace zamber::system {

void failLoginItem(bool isFailing) {
    isRecordBroken = isFailing;
}

void setLoginItemStatus(int status) {
    loginStatus = status;
}

void setSoundsThere(bool areThere) {
    areSoundsThere = areThere;
}

} // namespace zamber::system
