// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "Values.h"

#include <QByteArray>
#include <QRectF>
#include <QString>
#include <QUrl>

#import <Foundation/Foundation.h>

// Qt's conversions, which its headers declare on a Mac alone; see QtHeaders.cmake.

NSString* QString::toNSString() const {
    return zamber::system::text(*this);
}
QString QString::fromNSString(const NSString* text) {
    return text != nil ? const_cast<NSString*>(text).qtText : QString();
}
NSData* QByteArray::toNSData() const {
    return [NSData dataWithBytes:constData() length:static_cast<NSUInteger>(size())];
}
QByteArray QByteArray::fromNSData(const NSData* data) {
    NSData* const bytes = const_cast<NSData*>(data);
    return data != nil ? QByteArray(static_cast<const char*>(bytes.bytes), static_cast<qsizetype>(bytes.length))
                       : QByteArray();
}
QRectF QRectF::fromCGRect(CGRect rectangle) noexcept {
    return {rectangle.origin.x, rectangle.origin.y, rectangle.size.width, rectangle.size.height};
}
NSURL* QUrl::toNSURL() const {
    return [NSURL URLWithString:zamber::system::text(toString(QUrl::FullyEncoded))];
}
QUrl QUrl::fromNSURL(const NSURL* address) {
    return QUrl(const_cast<NSURL*>(address).absoluteString.qtText);
}
