// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/selection/ImageFormat.h"
#include "platform/freedesktop/selection/SelectionText.h"
#include "platform/x11/SelectionProperty.h"

#include <QString>

#include <unicode/unistr.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <set>
#include <string>

namespace {

using namespace zamber;

constexpr int FORMATS[] = {0, 8, 16, 32, 7, -32};

void require(bool condition) {
    if (!condition) {
        std::abort();
    }
}

/// Among the seeds' printable bytes, so that the fuzzer finds lists of them soon.
xcb_atom_t atom(x11::Atom name) {
    return 0x20202040 + static_cast<xcb_atom_t>(name);
}

xcb_atom_t typeOf(std::uint8_t choice) {
    constexpr std::uint8_t STRING = 100;
    constexpr std::uint8_t LIST = 101;
    switch (choice) {
    case STRING:
        return XCB_ATOM_STRING;
    case LIST:
        return XCB_ATOM_ATOM;
    default:
        return choice < x11::ATOM_NAMES.size() ? atom(static_cast<x11::Atom>(choice)) : xcb_atom_t{XCB_ATOM_NONE};
    }
}

/// What another implementation makes of the bytes: broken sequences replaced.
std::string repairedByIcu(const QByteArray& bytes) {
    std::string repaired;
    icu::UnicodeString::fromUTF8({bytes.constData(), static_cast<std::int32_t>(bytes.size())}).toUTF8String(repaired);
    return repaired;
}

void tryAsText(const x11::Property& property) {
    const auto text = x11::textOf(property, atom);
    if (text) {
        require(text->isValidUtf8());
        require(property.type != XCB_ATOM_STRING || *text == QString::fromLatin1(property.bytes).toUtf8());
        require(property.type != atom(x11::Atom::Utf8String) ||
                *text == QByteArray::fromStdString(repairedByIcu(property.bytes)));
        // One byte a character, the same where Latin-1 has it.
        const auto characters = QString::fromUtf8(*text).toUcs4();
        const auto latin1 = freedesktop::selection::latin1FromUtf8(*text);
        require(latin1.size() == characters.size());
        for (qsizetype i = 0; i < characters.size(); ++i) {
            const auto expected = characters[i] <= 0xff ? characters[i] : static_cast<unsigned>('?');
            require(static_cast<unsigned char>(latin1[i]) == expected);
        }
    }
    freedesktop::selection::latin1FromUtf8(property.bytes);
}

void tryAsTargets(const x11::Property& property) {
    const auto offered = x11::offeredTargets(property, atom);
    if (!offered) {
        return;
    }
    require(offered->size() == static_cast<std::size_t>(property.bytes.size()) / 4);
    const auto readable = x11::readableTargets(*offered, atom);
    require(std::set(readable.begin(), readable.end()).size() == readable.size());
    const auto isOffered = [&](xcb_atom_t target) { return std::ranges::find(*offered, target) != offered->end(); };
    require(std::ranges::all_of(readable, isOffered));
    const auto isImage = [](xcb_atom_t target) { return x11::isImageType(target, atom); };
    require(std::ranges::is_partitioned(readable, isImage));
    require(std::ranges::count_if(readable, isImage) ==
            static_cast<std::ptrdiff_t>(std::ranges::count_if(std::set(offered->begin(), offered->end()), isImage)));
}

} // namespace

/// Any property that another program may hand us: the first byte chooses its type, the second its format.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 2) {
        return 0;
    }
    const zamber::x11::Property property{
        .type = typeOf(data[0]),
        .format = FORMATS[data[1] % std::size(FORMATS)],
        .bytes = QByteArray(reinterpret_cast<const char*>(data + 2), static_cast<qsizetype>(size - 2))};
    tryAsText(property);
    tryAsTargets(property);
    require(zamber::x11::numbersOf(property).size() == (property.format == 32 ? (size - 2) / 4 : 0));
    require(zamber::x11::announcedSize(property) >= 0 && zamber::x11::announcedSize(property) <= std::int64_t{256}
                                                                                                     << 20);
    require(!zamber::x11::saysSecret(property) || property.bytes.size() == 6);
    require(
        zamber::freedesktop::selection::hasFormat(property.bytes, zamber::freedesktop::selection::ImageFormat::Png) +
            zamber::freedesktop::selection::hasFormat(property.bytes,
                                                      zamber::freedesktop::selection::ImageFormat::Tiff) +
            zamber::freedesktop::selection::hasFormat(property.bytes,
                                                      zamber::freedesktop::selection::ImageFormat::Bmp) <=
        1);
    return 0;
}
