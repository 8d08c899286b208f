// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/tray/TrayPicture.h"

#include <QColor>
#include <QPainter>
#include <QRect>

#include <algorithm>
#include <cmath>

namespace zamber::freedesktop::tray {

namespace {

constexpr QColor SHEET(0xf6, 0xf6, 0xf8);
constexpr QColor INK(0x1d, 0x1f, 0x23);

/// Shares of the picture's side.
constexpr double BOARD_INSET = 0.13;
constexpr double BOARD_TOP = 0.09;
constexpr double CLIP_INSET = 0.29;
constexpr double CLIP_HEIGHT = 0.25;
constexpr double TEXT_MARGIN = 0.13;

/// A rectangle of light within a dark line.
void drawOutlined(QPainter& painter, const QRect& rectangle, int line, double radius) {
    painter.setBrush(INK);
    painter.drawRoundedRect(rectangle, radius, radius);
    painter.setBrush(SHEET);
    const double inner = std::max(0.0, radius - line);
    painter.drawRoundedRect(rectangle.adjusted(line, line, -line, -line), inner, inner);
}

} // namespace

QImage trayPicture(int pixels) {
    const auto part = [pixels](double share) { return static_cast<int>(std::lround(share * pixels)); };
    const int line = std::max(1, static_cast<int>(std::lround(pixels / 18.0)));

    QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);

    const QRect board(QPoint(part(BOARD_INSET), part(BOARD_TOP)), QPoint(pixels - 1 - part(BOARD_INSET), pixels - 1));
    drawOutlined(painter, board, line, 0.14 * pixels);
    const QRect clip(QPoint(part(CLIP_INSET), 0), QPoint(pixels - 1 - part(CLIP_INSET), part(CLIP_HEIGHT) - 1));
    drawOutlined(painter, clip, line, 0.09 * pixels);

    // Three lines of text, the last one short, at even distances between the clip and the board's edge.
    const int top = clip.bottom() + 1;
    const int gap = (board.bottom() + 1 - line - top - 3 * line) / 4;
    const int left = board.left() + line + part(TEXT_MARGIN) - line / 2;
    const int width = board.left() + board.right() + 1 - 2 * left;
    painter.setRenderHint(QPainter::Antialiasing, false);
    for (int row = 0; row < 3; ++row) {
        painter.fillRect(left, top + gap + row * (line + gap), row == 2 ? (width * 3) / 5 : width, line, INK);
    }
    return image;
}

} // namespace zamber::freedesktop::tray
