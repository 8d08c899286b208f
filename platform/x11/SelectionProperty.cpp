// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/x11/SelectionProperty.h"

#include <algorithm>
#include <cstring>

namespace zamber::x11 {

std::vector<std::uint32_t> numbersOf(const Property& property) {
    if (property.format != 32) {
        return {};
    }
    std::vector<std::uint32_t> numbers(static_cast<std::size_t>(property.bytes.size()) / sizeof(std::uint32_t));
    if (!numbers.empty()) { // memcpy must not be given the null pointer of an empty vector
        std::memcpy(numbers.data(), property.bytes.constData(), numbers.size() * sizeof(std::uint32_t));
    }
    return numbers;
}

std::optional<std::vector<xcb_atom_t>> offeredTargets(const Property& answer, xcb_atom_t targets) {
    if (answer.format != 32 || (answer.type != XCB_ATOM_ATOM && answer.type != targets)) {
        return std::nullopt;
    }
    std::vector<xcb_atom_t> offered = numbersOf(answer);
    offered.resize(std::min(offered.size(), MOST_TARGETS));
    return offered;
}

} // namespace zamber::x11
