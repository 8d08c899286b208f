// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QImage>
#include <QSize>

#include <optional>

namespace zamber::clipboard {

/// The image in full, or nothing when the bytes do not decode, or to more than a gigabyte.
std::optional<QImage> decodedImage(const QByteArray& bytes);

/// The image scaled to fill the box (pixels), what overflows cropped evenly; null where `decodedImage` has none.
QImage imageFilling(QSize box, const QByteArray& bytes);

} // namespace zamber::clipboard
