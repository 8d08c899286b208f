// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/x11/SelectionProperty.h"

#include "text/Utf8.h"

#include "platform/freedesktop/selection/SelectionText.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace zamber::x11 {

namespace {

/// From the best to the last resort. TIFF is what programs here encode largest; the others need converting.
constexpr std::array IMAGES{Atom::ImagePng, Atom::ImageTiff, Atom::ImageJpeg,  Atom::ImageWebp,
                            Atom::ImageBmp, Atom::ImageXBmp, Atom::ImageXMsBmp};

constexpr std::array TEXTS{Atom::Utf8String, Atom::TextPlainUtf8, Atom::TextPlainUtf8Capitals};

constexpr std::array LESSER_TEXTS{Atom::TextPlain, Atom::Text};

/// An INCR answer begins with a lower bound of the size, which spares us growing step by step; but it is the
/// owner's word, so that no more than this is reserved on it.
constexpr qint64 MOST_RESERVED_BYTES = qint64{256} << 20;

bool isAmong(const auto& names, xcb_atom_t type, const AtomLookup& atom) {
    return std::ranges::any_of(names, [&](Atom name) { return atom(name) == type; });
}

} // namespace

std::vector<std::uint32_t> numbersOf(const Property& property) {
    if (property.format != 32) {
        return {};
    }
    std::vector<std::uint32_t> numbers(static_cast<std::size_t>(property.bytes.size()) / sizeof(std::uint32_t));
    if (!numbers.empty()) { // an empty vector has no place to copy to, not even nothing
        std::memcpy(numbers.data(), property.bytes.constData(), numbers.size() * sizeof(std::uint32_t));
    }
    return numbers;
}

std::optional<std::vector<xcb_atom_t>> offeredTargets(const Property& answer, const AtomLookup& atom) {
    const bool isList = answer.format == 32 && (answer.type == XCB_ATOM_ATOM || answer.type == atom(Atom::Targets));
    return isList ? std::optional(numbersOf(answer)) : std::nullopt;
}

std::vector<xcb_atom_t> readableTargets(const std::vector<xcb_atom_t>& offered, const AtomLookup& atom) {
    std::vector<xcb_atom_t> readable;
    const auto addIfOffered = [&](xcb_atom_t target) {
        if (std::ranges::find(offered, target) != offered.end()) {
            readable.push_back(target);
        }
    };
    const auto addOffered = [&](const auto& names) {
        for (const Atom name : names) {
            addIfOffered(atom(name));
        }
    };
    addOffered(IMAGES);
    addOffered(TEXTS);
    addIfOffered(XCB_ATOM_STRING);
    addOffered(LESSER_TEXTS);
    return readable;
}

bool isImageType(xcb_atom_t type, const AtomLookup& atom) {
    return isAmong(IMAGES, type, atom);
}

bool saysSecret(const Property& hint) {
    // Programs put other values there too, meaning no secret.
    return hint.format == 8 && hint.bytes == "secret";
}

std::optional<QByteArray> textOf(const Property& answer, const AtomLookup& atom) {
    if (answer.type == XCB_ATOM_STRING) {
        return freedesktop::selection::utf8FromLatin1(answer.bytes);
    }
    if (isAmong(TEXTS, answer.type, atom) || answer.type == atom(Atom::TextPlain)) {
        return text::repairedUtf8(answer.bytes);
    }
    // A name without an encoding says nothing, an empty answer of INCR has no type at all.
    return answer.bytes.isEmpty() ? std::optional(QByteArray()) : std::nullopt;
}

qint64 announcedSize(const Property& incr) {
    const auto numbers = numbersOf(incr);
    return numbers.empty() ? 0 : std::min<qint64>(numbers.front(), MOST_RESERVED_BYTES);
}

} // namespace zamber::x11
