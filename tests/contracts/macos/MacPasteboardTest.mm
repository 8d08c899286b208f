// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/macos/MacPasteboard.h"

#include "MainLoop.h"

#include "tests/contracts/PasteboardContract.h"

#import <AppKit/AppKit.h>

namespace zamber::macos {

namespace {

/// On a pasteboard that nobody else knows; the user's is not touched. The other program is this one, by the system's
/// own calls: the server cannot tell them apart.
struct MacPasteboardRig {
    NSPasteboard* server = [NSPasteboard pasteboardWithUniqueName];
    MacPasteboard real{QString::fromNSString(server.name)};

    ~MacPasteboardRig() { [server releaseGlobally]; }

    Pasteboard& pasteboard() { return real; }

    static NSPasteboardType typeOf(ImageType type) {
        return type == ImageType::Tiff ? NSPasteboardTypeTIFF : NSPasteboardTypePNG;
    }

    void copyText(const QByteArray& text) {
        [server clearContents];
        [server setString:QString::fromUtf8(text).toNSString() forType:NSPasteboardTypeString];
    }
    void copyImage(ImageType type, const QByteArray& bytes) {
        [server clearContents];
        [server setData:bytes.toNSData() forType:typeOf(type)];
    }
    void copyImageWithText(ImageType type, const QByteArray& bytes, const QByteArray& text) {
        copyImage(type, bytes);
        [server setString:QString::fromUtf8(text).toNSString() forType:NSPasteboardTypeString];
    }
    void copyNothing() {
        [server clearContents];
        [server setData:[NSData dataWithBytes:"x" length:1] forType:@"app.zamber.test"];
    }
    std::optional<QByteArray> pastedText() {
        NSString* const text = [server stringForType:NSPasteboardTypeString];
        return text != nil ? std::optional(QString::fromNSString(text).toUtf8()) : std::nullopt;
    }
    std::optional<QByteArray> pastedImage(ImageType type) {
        NSData* const data = [server dataForType:typeOf(type)];
        return data != nil ? std::optional(QByteArray::fromNSData(data)) : std::nullopt;
    }
    bool waitUntil(const std::function<bool()>& condition) { return zamber::macos::waitUntil(condition); }
    void settle() { letPass(); }
};

} // namespace

INSTANTIATE_TYPED_TEST_SUITE_P(Mac, PasteboardContract, MacPasteboardRig);

} // namespace zamber::macos
