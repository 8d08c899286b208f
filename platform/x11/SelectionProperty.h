// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/x11/Connection.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

namespace zamber::x11 {

/// What stands in the properties that other programs fill for us. Any program may own or ask for a selection, so that
/// any bytes of any type may come.

/// The atom of one of our names, as the server numbers it.
using AtomLookup = std::function<xcb_atom_t(Atom)>;

/// The elements of 32 bits, none when the property has others. What is left of an incomplete one is passed over.
std::vector<std::uint32_t> numbersOf(const Property& property);

/// The answer to TARGETS: what the owner offers; nothing when it is no list.
std::optional<std::vector<xcb_atom_t>> offeredTargets(const Property& answer, const AtomLookup& atom);

/// Those of the offered that can be read, the best first: images before texts, exact types before vague ones.
std::vector<xcb_atom_t> readableTargets(const std::vector<xcb_atom_t>& offered, const AtomLookup& atom);

/// Is it an image type that can be read?
bool isImageType(xcb_atom_t type, const AtomLookup& atom);

/// The mark that password managers put on what is to be kept nowhere.
bool saysSecret(const Property& hint);

/// The text in UTF-8, by the encoding that the answer's type names; nothing when it names none.
std::optional<QByteArray> textOf(const Property& answer, const AtomLookup& atom);

/// How many bytes an INCR answer announces at least; the owner's word, so never more than is safe to reserve.
qint64 announcedSize(const Property& incr);

} // namespace zamber::x11
