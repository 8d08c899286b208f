// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
//
// Draws an SVG in every size of a Mac's icon and writes them into one .icns file: "icns" and the file's length, then
// for each picture its type, the length of all that is its own, and the picture as PNG. Lengths are big-endian.
#include <QBuffer>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSaveFile>
#include <QSvgRenderer>
#include <QtEndian>

#include <cstdio>
#include <cstdlib>

namespace {

struct Size {
    const char* type;
    int pixels;
};

constexpr Size SIZES[] = {{"icp4", 16},   {"icp5", 32}, {"ic07", 128}, {"ic08", 256}, {"ic09", 512},
                          {"ic10", 1024}, {"ic11", 32}, {"ic12", 64},  {"ic13", 256}, {"ic14", 512}};
constexpr qsizetype HEAD_BYTES = 8;

QByteArray block(const char* type, const QByteArray& content) {
    const quint32 length = qToBigEndian(static_cast<quint32>(content.size() + HEAD_BYTES));
    return QByteArray(type, 4) + QByteArray(reinterpret_cast<const char*>(&length), sizeof(length)) + content;
}

QByteArray drawn(QSvgRenderer& picture, int pixels) {
    QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    picture.render(&painter);
    painter.end();
    QBuffer png;
    png.open(QIODevice::WriteOnly);
    image.save(&png, "PNG");
    return png.data();
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    if (argc != 3) {
        std::fputs("Usage: make_icons PICTURE.svg ICONS.icns\n", stderr);
        return EXIT_FAILURE;
    }
    QSvgRenderer picture(QString::fromLocal8Bit(argv[1]));
    QByteArray icons;
    for (const auto& [type, pixels] : SIZES) {
        icons += block(type, drawn(picture, pixels));
    }
    QSaveFile file(QString::fromLocal8Bit(argv[2]));
    const QByteArray whole = block("icns", icons);
    const bool isDone =
        picture.isValid() && file.open(QIODevice::WriteOnly) && file.write(whole) == whole.size() && file.commit();
    if (!isDone) {
        std::fprintf(stderr, "make_icons: %s could not be made of %s\n", argv[2], argv[1]);
    }
    return isDone ? EXIT_SUCCESS : EXIT_FAILURE;
}
