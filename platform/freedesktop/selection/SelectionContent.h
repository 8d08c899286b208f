// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/freedesktop/selection/ImageFormat.h"

#include <QByteArray>

#include <map>
#include <optional>

namespace zamber::freedesktop::selection {

/// What a clipboard holds, in the forms that are kept of one copy: a text, image bytes, a list of files, or nothing.
struct SelectionContent {
    std::optional<QByteArray> text;             ///< UTF-8
    std::optional<QByteArray> image;            ///< in whatever format they came
    ImageFormat imageLabel = ImageFormat::Tiff; ///< what the image bytes are offered as, unchanged
    std::map<QByteArray, QByteArray> files;     ///< copied files as file managers list them: bytes by type, unchanged

    bool isEmpty() const { return !text && !image && files.empty(); }
};

} // namespace zamber::freedesktop::selection
