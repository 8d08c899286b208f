// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>

#include <ostream>
#include <span>
#include <vector>

namespace zamber::links {

/// A text as people copy it, and what of it is a link: nothing where that is empty. The address is as it goes over the
/// wire, and the link itself where it is empty.
struct LinkCase {
    QStringView text;
    QStringView link = {};
    QStringView address = {};
};

struct LinkGroup {
    const char* name;
    std::span<const LinkCase> cases;

    /// Names the group's test.
    friend std::ostream& operator<<(std::ostream& stream, const LinkGroup& group) { return stream << group.name; }
};

/// From RFC 3986, RFC 6531 and what stands in front of people all day.
std::vector<LinkGroup> linkTable();

} // namespace zamber::links
