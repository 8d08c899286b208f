// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "Values.h"

#include "tests/macos/System.h"

#import <AppKit/AppKit.h>

#include <map>

// The rules (NSPasteboard.h): the contents are the server's, by name, and so is the count, which each change of owner
// moves: clearContents, in any process. Writing a type does not move it.

using namespace zamber::system;

NSPasteboardType const NSPasteboardTypeTIFF = @"public.tiff";
NSPasteboardType const NSPasteboardTypePNG = @"public.png";
NSPasteboardType const NSPasteboardTypeString = @"public.utf8-plain-text";

namespace {

struct Contents {
    NSInteger changeCount = 41; // others have been there before
    std::map<QString, id> items;
};

Contents& contentsOf(NSString* name) {
    static auto* all = new std::map<QString, Contents>;
    return (*all)[name.qtText];
}

} // namespace

@implementation NSPasteboard {
    NSString* _name;
}
+ (NSPasteboard*)pasteboardWithName:(NSString*)name {
    NSPasteboard* const pasteboard = [NSPasteboard new];
    pasteboard->_name = name;
    return pasteboard;
}
+ (NSPasteboard*)generalPasteboard {
    return [self pasteboardWithName:@"general"];
}
+ (NSPasteboard*)pasteboardWithUniqueName {
    return [self pasteboardWithName:NSUUID.UUID.UUIDString];
}
- (NSString*)name {
    return _name;
}
- (void)releaseGlobally {
    contentsOf(_name).items.clear();
}
- (NSInteger)changeCount {
    return contentsOf(_name).changeCount;
}
- (NSInteger)clearContents {
    note("NSPasteboard clearContents");
    contentsOf(_name).items.clear();
    return ++contentsOf(_name).changeCount;
}
- (id)item:(NSPasteboardType)type {
    auto& items = contentsOf(_name).items;
    const auto found = items.find(type.qtText);
    return found != items.end() ? found->second : nil;
}
- (NSData*)dataForType:(NSPasteboardType)type {
    note("NSPasteboard dataForType: %s", type.UTF8String);
    const id item = [self item:type];
    return [item isKindOfClass:NSString.class] ? [item dataUsingEncoding:NSUTF8StringEncoding] : item;
}
- (NSString*)stringForType:(NSPasteboardType)type {
    note("NSPasteboard stringForType: %s", type.UTF8String);
    const id item = [self item:type];
    return [item isKindOfClass:NSString.class] ? item : nil;
}
- (BOOL)setData:(NSData*)data forType:(NSPasteboardType)type {
    note("NSPasteboard setData: %lu bytes forType: %s", data.length, type.UTF8String);
    contentsOf(_name).items[type.qtText] = data;
    return YES;
}
- (BOOL)setString:(NSString*)text forType:(NSPasteboardType)type {
    note("NSPasteboard setString: %lu characters forType: %s", text.length, type.UTF8String);
    contentsOf(_name).items[type.qtText] = text;
    return YES;
}
@end

void zamber::system::copyTextElsewhere(const QString& copied) {
    Contents& general = contentsOf(@"general");
    general.items = {{NSPasteboardTypeString.qtText, text(copied)}};
    ++general.changeCount;
}
