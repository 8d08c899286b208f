// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QBuffer>
#include <QByteArray>
#include <QColor>
#include <QImage>

#include <gtest/gtest.h>

namespace zamber {

/// The picture as a file of one of Qt's formats ("PNG", "TIFF", "BMP" …); a failed expectation if there is no such
/// format.
inline QByteArray encoded(const QImage& picture, const char* format) {
    QBuffer file;
    file.open(QIODevice::WriteOnly);
    EXPECT_TRUE(picture.save(&file, format)) << format;
    return file.data();
}

/// A picture of one colour, as a file.
inline QByteArray filledPicture(QSize size, const QColor& colour, const char* format = "PNG") {
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(colour);
    return encoded(picture, format);
}

} // namespace zamber
