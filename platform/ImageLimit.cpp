// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/ImageLimit.h"

#include <QImageReader>

#include <mutex>

namespace zamber {

void raiseImageLimit() {
    static std::once_flag isRaised;
    std::call_once(isRaised, [] { QImageReader::setAllocationLimit(LARGEST_IMAGE_MEGABYTES); });
}

} // namespace zamber
