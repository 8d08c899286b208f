// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "Values.h"

#include <QStringConverter>
#include <QUrl>
#include <QUuid>

#import <Foundation/Foundation.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <map>
#include <mutex>
#include <string>
#include <vector>

/// What the compiler makes of @"…": ASCII, or UTF-16 by the flags.
struct ConstantString {
    void* isa;
    std::uint32_t flags;
    const void* text;
    long length;
};
constexpr std::uint32_t CONSTANT_IS_WIDE = 0x7D0;

@interface ZamberConstantString : NSString
@end
// The compiler names the class of its constants so.
asm(".globl __CFConstantStringClassReference\n"
    ".set __CFConstantStringClassReference, OBJC_CLASS_$_ZamberConstantString");

@implementation NSString {
    QString _text;
    QByteArray _bytes;
}
+ (instancetype)stringWithUTF8String:(const char*)text {
    return [[self alloc] initWithBytes:text length:std::strlen(text) encoding:NSUTF8StringEncoding];
}
- (instancetype)initWithBytes:(const void*)bytes length:(NSUInteger)length encoding:(NSStringEncoding)encoding {
    // NSString.h: nil where the bytes are none of that encoding. Every character is kept, U+FEFF among them.
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::ConvertInitialBom);
    _text = decoder.decode(QByteArrayView(static_cast<const char*>(bytes), static_cast<qsizetype>(length)));
    _bytes = _text.toUtf8();
    return decoder.hasError() ? nil : self;
}
- (instancetype)initWithCharacters:(const uint16_t*)characters length:(NSUInteger)length {
    _text = QString(reinterpret_cast<const QChar*>(characters), static_cast<qsizetype>(length));
    _bytes = _text.toUtf8();
    return self;
}
- (QString)qtText {
    return _text;
}
- (const char*)UTF8String {
    return _bytes.constData();
}
- (NSUInteger)length {
    return static_cast<NSUInteger>(self.qtText.size());
}
- (void)getCharacters:(uint16_t*)buffer {
    const QString text = self.qtText;
    std::memcpy(buffer, text.utf16(), static_cast<std::size_t>(text.size()) * sizeof(uint16_t));
}
- (NSData*)dataUsingEncoding:(NSStringEncoding)encoding {
    const QByteArray bytes = self.qtText.toUtf8();
    return [NSData dataWithBytes:bytes.constData() length:static_cast<NSUInteger>(bytes.size())];
}
- (NSString*)stringByAppendingString:(NSString*)other {
    return zamber::system::text(self.qtText + other.qtText);
}
- (BOOL)isEqual:(id)other {
    return [other isKindOfClass:NSString.class] && [other qtText] == self.qtText;
}
- (BOOL)isEqualToString:(NSString*)other {
    return [self isEqual:other];
}
- (NSInteger)integerValue {
    return std::strtol(self.qtText.toUtf8().constData(), nullptr, 10);
}
- (BOOL)boolValue {
    // NSString.h: "Skips initial space characters (whitespaceSet), or optional -/+ sign followed by zeroes. Returns YES
    // on encountering one of "Y", "y", "T", "t", or a digit 1-9. It ignores any trailing characters."
    const QString text = self.qtText;
    QStringView rest = text;
    while (!rest.isEmpty() && rest.front().isSpace()) {
        rest = rest.mid(1);
    }
    if (!rest.isEmpty() && (rest.front() == u'+' || rest.front() == u'-')) {
        rest = rest.mid(1);
    }
    while (!rest.isEmpty() && rest.front() == u'0') {
        rest = rest.mid(1);
    }
    return !rest.isEmpty() && QStringLiteral("YyTt123456789").contains(rest.front());
}
- (NSString*)description {
    return self;
}
@end

@implementation ZamberConstantString
- (QString)qtText {
    const auto* const constant = (__bridge ConstantString*)self;
    return constant->flags == CONSTANT_IS_WIDE
               ? QString(static_cast<const QChar*>(constant->text), constant->length)
               : QString::fromUtf8(static_cast<const char*>(constant->text), constant->length);
}
- (const char*)UTF8String {
    static auto* all = new std::map<const void*, QByteArray>; // as long as the process, as the constants
    static std::mutex mutex;
    const std::lock_guard lock(mutex);
    QByteArray& bytes = (*all)[(__bridge void*)self];
    bytes = bytes.isEmpty() ? self.qtText.toUtf8() : bytes;
    return bytes.constData();
}
@end

@implementation NSData {
    QByteArray _bytes;
}
+ (instancetype)dataWithBytes:(const void*)bytes length:(NSUInteger)length {
    NSData* const data = [self new];
    data->_bytes = QByteArray(static_cast<const char*>(bytes), static_cast<qsizetype>(length));
    return data;
}
- (const void*)bytes {
    return _bytes.constData();
}
- (NSUInteger)length {
    return static_cast<NSUInteger>(_bytes.size());
}
@end

@implementation NSNumber {
    NSInteger _value;
}
+ (NSNumber*)numberWithInteger:(NSInteger)value {
    NSNumber* const number = [NSNumber new];
    number->_value = value;
    return number;
}
+ (NSNumber*)numberWithBool:(BOOL)value {
    return [self numberWithInteger:value ? 1 : 0];
}
- (NSInteger)integerValue {
    return _value;
}
- (BOOL)boolValue {
    return _value != 0;
}
- (NSString*)stringValue {
    return zamber::system::text(QString::number(_value));
}
- (BOOL)isEqual:(id)other {
    return [other isKindOfClass:NSNumber.class] && [other integerValue] == _value;
}
@end

@implementation NSArray {
    std::vector<id> _objects;
}
+ (instancetype)arrayWithObjects:(const id*)objects count:(NSUInteger)count {
    NSArray* const array = [self new];
    for (NSUInteger i = 0; i < count; ++i) {
        array->_objects.push_back(objects[i]);
    }
    return array;
}
- (NSUInteger)count {
    return _objects.size();
}
- (id)firstObject {
    return _objects.empty() ? nil : _objects.front();
}
- (id)objectAtIndexedSubscript:(NSUInteger)index {
    return _objects.at(index);
}
- (NSUInteger)countByEnumeratingWithState:(NSFastEnumerationState*)state
                                  objects:(__unsafe_unretained id*)buffer
                                    count:(NSUInteger)length {
    static unsigned long mutations = 0; // none of them can be changed
    state->mutationsPtr = &mutations;
    state->itemsPtr = buffer;
    NSUInteger given = 0;
    for (; given < length && state->state < _objects.size(); ++given, ++state->state) {
        buffer[given] = _objects[state->state];
    }
    return given;
}
@end

@implementation NSDictionary {
    std::vector<std::pair<id, id>> _entries;
}
+ (instancetype)dictionaryWithObjects:(const id*)objects forKeys:(const id*)keys count:(NSUInteger)count {
    NSDictionary* const dictionary = [self new];
    for (NSUInteger i = 0; i < count; ++i) {
        dictionary->_entries.emplace_back(keys[i], objects[i]);
    }
    return dictionary;
}
- (NSUInteger)count {
    return _entries.size();
}
- (id)objectForKeyedSubscript:(id)key {
    const auto found = std::ranges::find_if(_entries, [key](const auto& entry) { return [entry.first isEqual:key]; });
    return found != _entries.end() ? found->second : nil;
}
@end

NSString* const NSLocalizedDescriptionKey = @"NSLocalizedDescription";

@implementation NSError {
    NSString* _domain;
    NSInteger _code;
    NSDictionary* _info;
}
+ (instancetype)errorWithDomain:(NSString*)domain code:(NSInteger)code userInfo:(NSDictionary*)info {
    NSError* const error = [self new];
    error->_domain = domain;
    error->_code = code;
    error->_info = info;
    return error;
}
- (NSString*)localizedDescription {
    return _info[NSLocalizedDescriptionKey];
}
- (NSString*)description {
    return zamber::system::text(QStringLiteral("Error Domain=%1 Code=%2 \"%3\"")
                                    .arg(_domain.qtText)
                                    .arg(_code)
                                    .arg(self.localizedDescription.qtText));
}
@end

@implementation NSUUID {
    NSString* _text;
}
+ (NSUUID*)UUID {
    NSUUID* const made = [NSUUID new];
    made->_text = zamber::system::text(QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper());
    return made;
}
- (NSString*)UUIDString {
    return _text;
}
@end

@implementation NSURL {
    QUrl _address;
    QByteArray _path;
}
+ (NSURL*)withAddress:(QUrl)address {
    NSURL* const made = [NSURL new];
    made->_address = address;
    made->_path = address.path().toUtf8();
    return made;
}
+ (NSURL*)fileURLWithPath:(NSString*)path {
    return [self withAddress:QUrl::fromLocalFile(path.qtText)];
}
+ (NSURL*)URLWithString:(NSString*)text {
    return [self withAddress:QUrl(text.qtText)];
}
- (NSString*)path {
    return zamber::system::text(_address.path());
}
- (NSString*)absoluteString {
    return zamber::system::text(_address.toString());
}
- (const char*)fileSystemRepresentation {
    return _path.constData();
}
@end

namespace zamber::system {

NSString* text(const QString& text) {
    return [[NSString alloc] initWithCharacters:reinterpret_cast<const uint16_t*>(text.utf16())
                                         length:static_cast<NSUInteger>(text.size())];
}

NSError* error(const char* domain, int code, const QString& description) {
    const id key = NSLocalizedDescriptionKey;
    const id value = text(description);
    return [NSError errorWithDomain:text(QString::fromLatin1(domain))
                               code:code
                           userInfo:[NSDictionary dictionaryWithObjects:&value forKeys:&key count:1]];
}

std::string words(NSString* text) {
    return text != nil ? text.qtText.toStdString() : "nil";
}

} // namespace zamber::system
