// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/macos/MacWorkspace.h"

#import <AppKit/AppKit.h>

#include <algorithm>
#include <map>
#include <utility>

namespace zamber::macos {

/// The applications that were in front, by their handles.
struct MacWorkspace::Seen {
    std::map<std::uint64_t, NSRunningApplication*> applications;
    std::uint64_t lastHandle = 0;

    std::uint64_t handleOf(NSRunningApplication* application) {
        std::erase_if(applications, [](const auto& entry) { return entry.second.terminated; });
        const auto found = std::ranges::find_if(
            applications, [application](const auto& entry) { return [entry.second isEqual:application]; });
        if (found != applications.end()) {
            return found->first;
        }
        applications[++lastHandle] = application;
        return lastHandle;
    }
};

namespace {

std::optional<QString> text(NSString* string) {
    return string != nil ? std::optional(QString::fromNSString(string)) : std::nullopt;
}

} // namespace

MacWorkspace::MacWorkspace()
    : m_seen(std::make_unique<Seen>()) {}

MacWorkspace::~MacWorkspace() = default;

std::optional<RunningApplication> MacWorkspace::frontmostApplication() {
    NSRunningApplication* const application = NSWorkspace.sharedWorkspace.frontmostApplication;
    if (application == nil) {
        return std::nullopt;
    }
    return RunningApplication{.handle = m_seen->handleOf(application),
                              .processId = application.processIdentifier,
                              .localizedName = text(application.localizedName)};
}

void MacWorkspace::activate(const RunningApplication& application) {
    if (const auto found = m_seen->applications.find(application.handle); found != m_seen->applications.end()) {
        [found->second activateWithOptions:0];
    }
}

void MacWorkspace::open(const QUrl& address) {
    [NSWorkspace.sharedWorkspace openURL:address.toNSURL()];
}

void MacWorkspace::openNewInstance(const QString& path, Started done) {
    NSWorkspaceOpenConfiguration* const configuration = [NSWorkspaceOpenConfiguration configuration];
    configuration.createsNewApplicationInstance = YES;
    [NSWorkspace.sharedWorkspace openApplicationAtURL:[NSURL fileURLWithPath:path.toNSString()]
                                        configuration:configuration
                                    completionHandler:^(NSRunningApplication*, NSError* error) {
                                      const std::optional<QString> description = text(error.localizedDescription);
                                      dispatch_async(dispatch_get_main_queue(), ^{
                                        done(description);
                                      });
                                    }];
}

std::expected<void, QString> MacWorkspace::moveToTrash(const QString& path) {
    NSError* error = nil;
    if ([NSFileManager.defaultManager trashItemAtURL:[NSURL fileURLWithPath:path.toNSString()]
                                    resultingItemURL:nil
                                               error:&error]) {
        return {};
    }
    return std::unexpected(QString::fromNSString(error.localizedDescription));
}

} // namespace zamber::macos
