// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/macos/MacSymbols.h"

#include <QPainter>

#import <AppKit/AppKit.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace zamber::macos {

namespace {

NSFontWeight fontWeight(QFont::Weight weight) {
    const std::array weights{NSFontWeightUltraLight, NSFontWeightThin,   NSFontWeightLight,
                             NSFontWeightRegular,    NSFontWeightMedium, NSFontWeightSemibold,
                             NSFontWeightBold,       NSFontWeightHeavy,  NSFontWeightBlack};
    return weights.at(static_cast<std::size_t>(std::clamp(weight / 100, 1, 9)) - 1);
}

/// Draws the symbol over the whole of an empty image.
void draw(NSImage* symbol, QImage& image) {
    CGColorSpaceRef colorSpace = CGColorSpaceCreateWithName(kCGColorSpaceSRGB);
    CGContextRef bitmap = CGBitmapContextCreate(image.bits(), static_cast<std::size_t>(image.width()),
                                                static_cast<std::size_t>(image.height()), 8,
                                                static_cast<std::size_t>(image.bytesPerLine()), colorSpace,
                                                static_cast<std::uint32_t>(kCGImageAlphaPremultipliedFirst) |
                                                    static_cast<std::uint32_t>(kCGBitmapByteOrder32Host));
    [NSGraphicsContext saveGraphicsState];
    NSGraphicsContext.currentContext = [NSGraphicsContext graphicsContextWithCGContext:bitmap flipped:NO];
    [symbol drawInRect:NSMakeRect(0, 0, image.width(), image.height())];
    [NSGraphicsContext restoreGraphicsState];
    CGContextRelease(bitmap);
    CGColorSpaceRelease(colorSpace);
}

} // namespace

QPixmap MacSymbols::pixmap(const QString& name, const SymbolStyle& style) const {
    NSImageSymbolConfiguration* const configuration =
        [NSImageSymbolConfiguration configurationWithPointSize:style.pointSize weight:fontWeight(style.weight)];
    NSImage* const symbol = [[NSImage imageWithSystemSymbolName:name.toNSString()
                                       accessibilityDescription:nil] imageWithSymbolConfiguration:configuration];
    if (symbol == nil) {
        return {};
    }
    const auto pixels = [&style](double points) {
        return static_cast<int>(std::ceil(points * style.devicePixelRatio));
    };
    QImage image(pixels(symbol.size.width), pixels(symbol.size.height), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    draw(symbol, image);

    // Whatever colour the symbol was drawn in, its shape is filled with the wanted one.
    QPainter painter(&image);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(image.rect(), style.color);
    painter.end();
    QPixmap pixmap = QPixmap::fromImage(std::move(image));
    pixmap.setDevicePixelRatio(style.devicePixelRatio);
    return pixmap;
}

} // namespace zamber::macos
