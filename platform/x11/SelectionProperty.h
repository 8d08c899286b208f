// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/x11/Connection.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace zamber::x11 {

/// What stands in the properties that other programs fill for us. Any program may own or ask for a selection, so that
/// any bytes of any type may come.

/// More targets than this are no honest offer; the others are passed over.
inline constexpr std::size_t MOST_TARGETS = 1024;

/// The elements of 32 bits, none when the property has others. What is left of an incomplete one is passed over.
std::vector<std::uint32_t> numbersOf(const Property& property);

/// The answer to TARGETS, whose atom that is: what the owner offers; nothing when it is no list.
std::optional<std::vector<xcb_atom_t>> offeredTargets(const Property& answer, xcb_atom_t targets);

} // namespace zamber::x11
