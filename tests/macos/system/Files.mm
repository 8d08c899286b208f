// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "Values.h"

#include "tests/macos/System.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#import <Foundation/Foundation.h>

#include <filesystem>

// The rules (NSFileManager.h): copying does not go over what is there, and what was copied before a failure stays;
// removing takes a folder with all it holds; attributes are those of a link itself.

namespace fs = std::filesystem;
using namespace zamber::system;

namespace {

QString& home() {
    static auto* path = new QString(QDir::homePath());
    return *path;
}

NSString* bundlePath = nil;
NSDictionary* bundleInformation = nil;

BOOL succeeded(const std::error_code& code, NSError** failure) {
    if (code && failure != nullptr) {
        *failure = error("NSCocoaErrorDomain", code.value(), QString::fromStdString(code.message()));
    }
    return !code;
}

} // namespace

@implementation NSFileManager
+ (NSFileManager*)defaultManager {
    static NSFileManager* const only = [NSFileManager new];
    return only;
}
- (NSArray<NSURL*>*)URLsForDirectory:(NSSearchPathDirectory)directory inDomains:(NSSearchPathDomainMask)domains {
    note("NSFileManager URLsForDirectory: %lu inDomains: %lu", directory, domains);
    const id first = [NSURL fileURLWithPath:text(home() + QStringLiteral("/Library/Application Support"))];
    return [NSArray arrayWithObjects:&first count:1];
}
- (NSDictionary*)attributesOfItemAtPath:(NSString*)path error:(NSError**)failure {
    std::error_code code;
    const fs::file_status status = fs::symlink_status(path.UTF8String, code);
    return fs::exists(status) ? [NSDictionary new] : nil;
}
- (BOOL)removeItemAtPath:(NSString*)path error:(NSError**)failure {
    note("NSFileManager removeItemAtPath:");
    std::error_code code;
    if (fs::remove_all(path.UTF8String, code) == 0 && !code) {
        code = std::make_error_code(std::errc::no_such_file_or_directory);
    }
    return succeeded(code, failure);
}
- (BOOL)copyItemAtPath:(NSString*)source toPath:(NSString*)destination error:(NSError**)failure {
    note("NSFileManager copyItemAtPath:toPath:");
    std::error_code code;
    if (fs::exists(fs::symlink_status(destination.UTF8String, code))) {
        code = std::make_error_code(std::errc::file_exists);
    } else {
        code.clear();
        fs::copy(source.UTF8String, destination.UTF8String,
                 fs::copy_options::recursive | fs::copy_options::copy_symlinks, code);
    }
    return succeeded(code, failure);
}
- (BOOL)trashItemAtURL:(NSURL*)item resultingItemURL:(NSURL**)result error:(NSError**)failure {
    note("NSFileManager trashItemAtURL: resultingItemURL: %s", result != nullptr ? "wanted" : "nil");
    const fs::path trash = (home() + QStringLiteral("/.Trash")).toStdString();
    const fs::path from = item.fileSystemRepresentation;
    std::error_code code;
    fs::create_directories(trash, code);
    fs::rename(from, trash / from.filename(), code);
    return succeeded(code, failure);
}
@end

@implementation NSBundle
+ (NSBundle*)mainBundle {
    static NSBundle* const only = [NSBundle new];
    return only;
}
- (NSString*)bundlePath {
    return bundlePath != nil ? bundlePath : text(QFileInfo(QCoreApplication::applicationFilePath()).path());
}
- (NSDictionary<NSString*, id>*)infoDictionary {
    return bundleInformation;
}
@end

namespace zamber::system {

void setHome(const QString& path) {
    home() = path;
}

void setBundle(const QString& path, const std::vector<std::pair<QString, QString>>& texts,
               const std::vector<std::pair<QString, int>>& numbers) {
    std::vector<id> keys;
    std::vector<id> values;
    for (const auto& [key, value] : texts) {
        keys.push_back(text(key));
        values.push_back(text(value));
    }
    for (const auto& [key, value] : numbers) {
        keys.push_back(text(key));
        values.push_back([NSNumber numberWithInteger:value]);
    }
    bundlePath = path.isEmpty() ? nil : text(path);
    bundleInformation = [NSDictionary dictionaryWithObjects:values.data() forKeys:keys.data() count:keys.size()];
}

} // namespace zamber::system
