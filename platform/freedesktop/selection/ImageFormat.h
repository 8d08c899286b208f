// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <functional>

class QObject;

namespace zamber::freedesktop::selection {

/// The image formats that a selection is offered or asked for in.
enum class ImageFormat { Png, Tiff, Bmp };

/// Whether the bytes begin as a file of that format does.
bool hasFormat(const QByteArray& bytes, ImageFormat format);

/// Converts an image of any format that Qt reads, on a thread of the pool, and calls `done` on the main thread unless
/// the context has gone meanwhile. The result is empty when the bytes do not decode, or not in the memory that there
/// is.
void convertImage(const QByteArray& bytes, ImageFormat format, QObject* context,
                  std::function<void(const QByteArray&)> done);

/// Finds out in the same way whether the bytes decode. An image that is too large to be decoded here counts as one that
/// does.
void checkImage(const QByteArray& bytes, QObject* context, std::function<void(bool)> done);

} // namespace zamber::freedesktop::selection
