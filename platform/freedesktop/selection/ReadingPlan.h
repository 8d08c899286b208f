// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/freedesktop/selection/SelectionTypes.h"

#include <optional>
#include <vector>

namespace zamber::freedesktop::selection {

/// Which of the types that a copy is offered in are asked for, and in which order. Owners encode an image anew for each
/// type that they are asked for, so that asking for more than is needed makes them freeze.
struct ReadingPlan {
    bool mayBeSecret = false; ///< a password manager's hint is offered, and to be read before all else

    /// What may become the content, the best first; the next one is for when the one before does not come.
    std::vector<QByteArray> candidates;

    /// What is kept only to be served when the owner has gone, each in turn, after the content has come.
    std::vector<QByteArray> filesBeside;       ///< the types that copied files are listed in; the marks of a cut first
    std::optional<QByteArray> textBesideImage; ///< for when the content is an image
};

/// The plan for a copy with these types; for one whose owner cannot tell them when there is no list at all.
ReadingPlan planReading(const std::optional<std::vector<QByteArray>>& offered);

} // namespace zamber::freedesktop::selection
