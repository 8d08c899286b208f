// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/macos/MacLoginItem.h"

#import <ServiceManagement/ServiceManagement.h>

namespace zamber::macos {

namespace {

std::expected<void, QString> outcome(BOOL succeeded, NSError* error) {
    if (succeeded) {
        return {};
    }
    return std::unexpected(QString::fromNSString(error.description));
}

} // namespace

LoginItemStatus MacLoginItem::status() const {
    switch (SMAppService.mainAppService.status) {
    case SMAppServiceStatusNotRegistered:
        return LoginItemStatus::NotRegistered;
    case SMAppServiceStatusEnabled:
        return LoginItemStatus::Enabled;
    case SMAppServiceStatusRequiresApproval:
        return LoginItemStatus::RequiresApproval;
    case SMAppServiceStatusNotFound:
        return LoginItemStatus::NotFound;
    }
    return LoginItemStatus::NotFound;
}

std::expected<void, QString> MacLoginItem::registerItem() {
    NSError* error = nil;
    const BOOL succeeded = [SMAppService.mainAppService registerAndReturnError:&error];
    return outcome(succeeded, error);
}

std::expected<void, QString> MacLoginItem::unregisterItem() {
    NSError* error = nil;
    const BOOL succeeded = [SMAppService.mainAppService unregisterAndReturnError:&error];
    return outcome(succeeded, error);
}

} // namespace zamber::macos
