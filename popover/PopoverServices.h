// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/StatusItem.h"

#include <QPoint>
#include <QString>
#include <QUrl>

#include <functional>

namespace zamber {
class LinkDetector;
}

namespace zamber::popover {

/// The surroundings of the popover's content.
struct PopoverServices {
    std::function<void()> openSettings; ///< empty: there is no button for the settings
    std::function<void()> closePopover;
    std::function<void(const QUrl&)> openAddress = {};
    std::function<bool(const QList<MenuItem>&, QPoint)> showMenu = {}; ///< false: the content draws its own menu
    LinkDetector* linkDetector = nullptr;                              ///< null: no text is a link
    QString commandKeyHint = {};                                       ///< which key ⌘ is, for people
};

} // namespace zamber::popover
