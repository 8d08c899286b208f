// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>

#include <ostream>
#include <span>
#include <vector>

namespace zamber::links {

/// A text as people copy it, and the link in it; an empty link means none. The address is as it goes over the wire; an
/// empty one means the link itself.
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

/// Links from RFC 3986, RFC 6531 and everyday texts.
std::vector<LinkGroup> linkTable();

} // namespace zamber::links
