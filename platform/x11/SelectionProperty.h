// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/x11/Connection.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace zamber::x11 {

/// The content of properties that other programs have filled. Any program may own or ask for a selection, so the bytes
/// and their type may be anything.

/// More targets than this are no honest offer; the others are passed over.
inline constexpr std::size_t MOST_TARGETS = 1024;

/// The elements of 32 bits; none when the property's are of another size. An incomplete one at the end is left out.
std::vector<std::uint32_t> numbersOf(const Property& property);

/// The answer to TARGETS, whose atom that is: what the owner offers; nothing when it is no list.
std::optional<std::vector<xcb_atom_t>> offeredTargets(const Property& answer, xcb_atom_t targets);

} // namespace zamber::x11
