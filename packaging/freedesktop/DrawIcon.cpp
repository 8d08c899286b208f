// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
//
// Draws an SVG as a square PNG of so many pixels.
#include <QCoreApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include <cstdio>
#include <cstdlib>

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    if (argc != 4) {
        std::fputs("Usage: draw_icon PICTURE.svg PIXELS ICON.png\n", stderr);
        return EXIT_FAILURE;
    }
    QSvgRenderer picture(QString::fromLocal8Bit(argv[1]));
    const int pixels = QByteArray(argv[2]).toInt();
    QImage image(pixels, pixels, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    picture.render(&painter);
    painter.end();
    const bool isDone = picture.isValid() && image.save(QString::fromLocal8Bit(argv[3]), "PNG");
    if (!isDone) {
        std::fprintf(stderr, "draw_icon: %s could not be made of %s\n", argv[3], argv[1]);
    }
    return isDone ? EXIT_SUCCESS : EXIT_FAILURE;
}
