// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "Values.h"

#include <QXmlStreamReader>

#import <Foundation/Foundation.h>

// The rule (NSPropertyList.h): nil and an error for what is no property list.

using namespace zamber::system;

namespace {

id value(QXmlStreamReader& xml);

id array(QXmlStreamReader& xml) {
    std::vector<id> objects;
    while (xml.readNextStartElement()) {
        objects.push_back(value(xml));
    }
    return [NSArray arrayWithObjects:objects.data() count:objects.size()];
}

id dictionary(QXmlStreamReader& xml) {
    std::vector<id> keys;
    std::vector<id> objects;
    while (xml.readNextStartElement()) {
        keys.push_back(text(xml.readElementText()));
        if (xml.readNextStartElement()) {
            objects.push_back(value(xml));
        }
    }
    return [NSDictionary dictionaryWithObjects:objects.data() forKeys:keys.data() count:objects.size()];
}

id value(QXmlStreamReader& xml) {
    if (xml.name() == QStringLiteral("dict")) {
        return dictionary(xml);
    }
    if (xml.name() == QStringLiteral("array")) {
        return array(xml);
    }
    if (xml.name() == QStringLiteral("integer")) {
        return [NSNumber numberWithInteger:xml.readElementText().toLong()];
    }
    if (xml.name() == QStringLiteral("true") || xml.name() == QStringLiteral("false")) {
        const bool truth = xml.name() == QStringLiteral("true");
        xml.skipCurrentElement();
        return [NSNumber numberWithBool:truth];
    }
    return text(xml.readElementText());
}

} // namespace

@implementation NSPropertyListSerialization
+ (id)propertyListWithData:(NSData*)data
                   options:(NSPropertyListReadOptions)options
                    format:(NSUInteger*)format
                     error:(NSError**)failure {
    QXmlStreamReader xml(QByteArray(static_cast<const char*>(data.bytes), static_cast<qsizetype>(data.length)));
    id found = nil;
    if (xml.readNextStartElement() && xml.name() == QStringLiteral("plist") && xml.readNextStartElement()) {
        found = value(xml);
    }
    if (xml.hasError() || found == nil) {
        if (failure != nullptr) {
            *failure = error("NSCocoaErrorDomain", 3840, QStringLiteral("The data is no property list."));
        }
        return nil;
    }
    return found;
}
@end
