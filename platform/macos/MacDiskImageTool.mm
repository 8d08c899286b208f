// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/macos/MacDiskImageTool.h"

#import <Foundation/Foundation.h>

namespace zamber::macos {

namespace {

NSTask* task(const QString& command, NSArray<NSString*>* arguments) {
    NSTask* const task = [NSTask new];
    task.executableURL = [NSURL fileURLWithPath:command.toNSString()];
    task.arguments = arguments;
    // The tool must not write to our standard output, which is the log.
    task.standardInput = NSFileHandle.fileHandleWithNullDevice;
    task.standardOutput = NSFileHandle.fileHandleWithNullDevice;
    task.standardError = NSFileHandle.fileHandleWithNullDevice;
    return task;
}

/// The object if it is of that class, else nil. Nil gives nil, as a dictionary does for a missing key.
template <class Object>
Object* as(id object) {
    return [object isKindOfClass:[Object class]] ? object : nil;
}

AttachedImage attachedImage(NSDictionary* image) {
    AttachedImage attached;
    if (NSString* const path = as<NSString>(image[@"image-path"])) {
        attached.imagePath = QString::fromNSString(path);
    }
    for (const id entity in as<NSArray>(image[@"system-entities"])) {
        if (NSString* const mountPoint = as<NSString>(as<NSDictionary>(entity)[@"mount-point"])) {
            attached.mountPoints.append(QString::fromNSString(mountPoint));
        }
    }
    return attached;
}

} // namespace

MacDiskImageTool::MacDiskImageTool(const QString& command)
    : m_command(command) {}

QString MacDiskImageTool::defaultCommand() {
    return QString::fromLatin1("/usr/bin/hdiutil");
}

std::expected<QList<AttachedImage>, QString> MacDiskImageTool::attachedImages() {
    NSTask* const info = task(m_command, @[ @"info", @"-plist" ]);
    NSPipe* const output = [NSPipe pipe];
    info.standardOutput = output;
    NSError* error = nil;
    if (![info launchAndReturnError:&error]) {
        return std::unexpected(QString::fromNSString(error.localizedDescription));
    }
    [info waitUntilExit];
    NSData* const report = [output.fileHandleForReading readDataToEndOfFile];
    const id list = [NSPropertyListSerialization propertyListWithData:report
                                                              options:NSPropertyListImmutable
                                                               format:nullptr
                                                                error:&error];
    if (list == nil) {
        return std::unexpected(QString::fromNSString(error.localizedDescription));
    }
    QList<AttachedImage> images;
    for (const id image in as<NSArray>(as<NSDictionary>(list)[@"images"])) {
        images.append(attachedImage(as<NSDictionary>(image)));
    }
    return images;
}

void MacDiskImageTool::detach(const QString& volumePath) {
    NSTask* const detach = task(m_command, @[ @"detach", volumePath.toNSString(), @"-force" ]);
    if ([detach launchAndReturnError:nil]) {
        [detach waitUntilExit];
    }
}

} // namespace zamber::macos
