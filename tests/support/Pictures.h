// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QBuffer>
#include <QByteArray>
#include <QColor>
#include <QImage>
#include <QRect>

#include <gtest/gtest.h>

#include <utility>

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

/// The first and the last row, or column, of the picture's part that is not as its corner is; -1 where all of it is.
inline std::pair<int, int> inkedRange(const QImage& picture, const QRect& part, Qt::Orientation along) {
    const QRgb ground = picture.pixel(part.topLeft());
    int first = -1;
    int last = -1;
    const bool isAcross = along == Qt::Horizontal;
    for (int i = isAcross ? part.left() : part.top(); i <= (isAcross ? part.right() : part.bottom()); ++i) {
        for (int j = isAcross ? part.top() : part.left(); j <= (isAcross ? part.bottom() : part.right()); ++j) {
            if (picture.pixel(isAcross ? i : j, isAcross ? j : i) != ground) {
                first = first < 0 ? i : first;
                last = i;
            }
        }
    }
    return {first, last};
}

/// How many pixels have a colour, and no shade of grey.
inline int colouredPixels(const QImage& picture) {
    int count = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            count += picture.pixelColor(x, y).saturation() > 60 ? 1 : 0;
        }
    }
    return count;
}

} // namespace zamber
