// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/macos/MacPasteboard.h"

#include "platform/macos/Retained.h"

#import <AppKit/AppKit.h>

namespace zamber::macos {

namespace {

NSPasteboardType typeOf(ImageType type) {
    return type == ImageType::Tiff ? NSPasteboardTypeTIFF : NSPasteboardTypePNG;
}

} // namespace

MacPasteboard::MacPasteboard()
    : m_pasteboard(retained(NSPasteboard.generalPasteboard)) {}

MacPasteboard::MacPasteboard(const QString& name)
    : m_pasteboard(retained([NSPasteboard pasteboardWithName:name.toNSString()])) {}

MacPasteboard::~MacPasteboard() {
    released<NSPasteboard>(m_pasteboard);
}

int MacPasteboard::changeCount() const {
    return static_cast<int>(borrowed<NSPasteboard>(m_pasteboard).changeCount);
}

std::optional<QByteArray> MacPasteboard::data(ImageType type) const {
    NSData* const data = [borrowed<NSPasteboard>(m_pasteboard) dataForType:typeOf(type)];
    return data != nil ? std::optional(QByteArray::fromNSData(data)) : std::nullopt;
}

std::optional<QByteArray> MacPasteboard::string() const {
    NSString* const text = [borrowed<NSPasteboard>(m_pasteboard) stringForType:NSPasteboardTypeString];
    return text != nil ? std::optional(QString::fromNSString(text).toUtf8()) : std::nullopt;
}

void MacPasteboard::clearContents() {
    [borrowed<NSPasteboard>(m_pasteboard) clearContents];
}

void MacPasteboard::setString(const QByteArray& text) {
    // Without Qt's conversion, which would drop a U+FEFF at the beginning.
    NSString* const string = [[NSString alloc] initWithBytes:text.constData()
                                                      length:static_cast<NSUInteger>(text.size())
                                                    encoding:NSUTF8StringEncoding];
    [borrowed<NSPasteboard>(m_pasteboard) setString:string != nil ? string : QString::fromUtf8(text).toNSString()
                                            forType:NSPasteboardTypeString];
}

void MacPasteboard::setData(ImageType type, const QByteArray& bytes) {
    [borrowed<NSPasteboard>(m_pasteboard) setData:bytes.toNSData() forType:typeOf(type)];
}

} // namespace zamber::macos
