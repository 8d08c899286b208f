// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
//
// Draws an SVG in every size of a Mac's icon, as the folder of PNG files that iconutil takes: icon_16x16.png for 16
// points, icon_16x16@2x.png for the same on a screen with twice the pixels, and so on.
#include <QDir>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include <cstdio>
#include <cstdlib>

namespace {

constexpr int POINTS[] = {16, 32, 128, 256, 512};

bool draw(QSvgRenderer& picture, int pixels, const QString& path) {
    QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    picture.render(&painter);
    painter.end();
    return image.save(path, "PNG");
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    if (argc != 3) {
        std::fputs("Usage: make_icons PICTURE.svg ICONS.iconset\n", stderr);
        return EXIT_FAILURE;
    }
    QSvgRenderer picture(QString::fromLocal8Bit(argv[1]));
    const QDir folder(QString::fromLocal8Bit(argv[2]));
    bool isDone = picture.isValid() && folder.mkpath(QStringLiteral("."));
    for (const int points : POINTS) {
        const QString name = folder.filePath(QStringLiteral("icon_%1x%1").arg(points));
        isDone = isDone && draw(picture, points, name + QStringLiteral(".png")) &&
                 draw(picture, 2 * points, name + QStringLiteral("@2x.png"));
    }
    if (!isDone) {
        std::fprintf(stderr, "make_icons: %s could not be made of %s\n", argv[2], argv[1]);
    }
    return isDone ? EXIT_SUCCESS : EXIT_FAILURE;
}
