// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/selection/ImageFormat.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QImageReader>
#include <QImageWriter>
#include <QMetaObject>
#include <QPointer>
#include <QThreadPool>

#include <utility>

namespace zamber::freedesktop::selection {

namespace {

/// An 8K screen decoded is 133 MB, above Qt's own bound of 128; this one still stops a bomb of a few bytes.
constexpr int LARGEST_DECODED_MEGABYTES = 1024;

const char* nameOf(ImageFormat format) {
    switch (format) {
    case ImageFormat::Png:
        return "png";
    case ImageFormat::Tiff:
        return "tiff";
    case ImageFormat::Bmp:
        return "bmp";
    }
    return "png";
}

QByteArray converted(QByteArray bytes, ImageFormat format) {
    QBuffer source(&bytes);
    QImageReader reader(&source);
    QImageReader::setAllocationLimit(LARGEST_DECODED_MEGABYTES);
    reader.setDecideFormatFromContent(true);
    const QImage image = reader.read();
    if (image.isNull()) {
        return {};
    }
    QByteArray result;
    QBuffer sink(&result);
    QImageWriter writer(&sink, nameOf(format));
    if (format == ImageFormat::Png) {
        writer.setCompression(30); // of 100: a third of the time for a tenth more bytes
    }
    return writer.write(image) ? result : QByteArray();
}

} // namespace

bool hasFormat(const QByteArray& bytes, ImageFormat format) {
    switch (format) {
    case ImageFormat::Png:
        return bytes.startsWith("\x89PNG\r\n\x1a\n");
    case ImageFormat::Tiff:
        return bytes.startsWith(QByteArray("II*\0", 4)) || bytes.startsWith(QByteArray("MM\0*", 4));
    case ImageFormat::Bmp:
        return bytes.startsWith("BM");
    }
    return false;
}

void convertImage(const QByteArray& bytes, ImageFormat format, QObject* context,
                  std::function<void(const QByteArray&)> done) {
    QThreadPool::globalInstance()->start([bytes, format, context = QPointer(context), done = std::move(done)] {
        const QByteArray result = converted(bytes, format);
        // The pointer is only looked at where the context lives: here it could vanish between test and use.
        QMetaObject::invokeMethod(
            QCoreApplication::instance(),
            [context, done, result] {
                if (context) {
                    done(result);
                }
            },
            Qt::QueuedConnection);
    });
}

} // namespace zamber::freedesktop::selection
