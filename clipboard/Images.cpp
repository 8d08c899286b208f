// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "clipboard/Images.h"

#include "platform/ImageLimit.h"

#include <QBuffer>
#include <QImageReader>

namespace zamber::clipboard {

namespace {

void open(QImageReader& reader, QBuffer& buffer) {
    raiseImageLimit();
    reader.setAutoTransform(true);
    reader.setDecideFormatFromContent(true);
    buffer.open(QIODevice::ReadOnly);
    reader.setDevice(&buffer);
}

/// The part of the image, in its middle, that has the proportions of the box.
QRect visiblePart(QSize image, QSize box) {
    const auto part = box.scaled(image, Qt::KeepAspectRatio).expandedTo({1, 1});
    return {QPoint((image.width() - part.width()) / 2, (image.height() - part.height()) / 2), part};
}

} // namespace

std::optional<QImage> decodedImage(const QByteArray& bytes) {
    QBuffer buffer;
    buffer.setData(bytes);
    QImageReader reader;
    open(reader, buffer);
    auto image = reader.read();
    return image.isNull() ? std::nullopt : std::optional(std::move(image));
}

QImage imageFilling(QSize box, const QByteArray& bytes) {
    QBuffer buffer;
    buffer.setData(bytes);
    QImageReader reader;
    open(reader, buffer);
    const auto size = reader.size();
    if (!size.isEmpty()) {
        // Clip and scale while decoding, in the orientation of the file.
        const bool isTurned = (reader.transformation() & QImageIOHandler::TransformationRotate90) != 0;
        const auto turnedBox = isTurned ? box.transposed() : box;
        reader.setClipRect(visiblePart(size, turnedBox));
        reader.setScaledSize(turnedBox);
        return reader.read();
    }
    const auto image = reader.read();
    return image.isNull() ? image
                          : image.copy(visiblePart(image.size(), box))
                                .scaled(box, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

} // namespace zamber::clipboard
