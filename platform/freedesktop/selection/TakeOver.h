// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/freedesktop/selection/SelectionContent.h"

#include <chrono>

namespace zamber::freedesktop::selection {

/// Where the content that is held comes from, which decides whether it may be served on when its owner goes away.
enum class ContentSource {
    Nothing,   ///< not from the present owner of the clipboard
    Ourselves, ///< this program wrote it, or has taken it over
    Foreign,   ///< it was read from the owner
    Secret,    ///< the owner has marked its content; none is held
};

/// How a clipboard came to have no owner.
enum class OwnerLoss {
    Gone,    ///< the owner, or its window, went away
    Cleared, ///< emptied on purpose; but some programs do so as they end, like gvim
};

/// Decides whether what was copied is served on after its owner, which is looked at every `DELAY` until it is settled.
class TakeOver final {
public:
    /// A program that replaces its own offer may let go of the old one first; taking over in that gap would make the
    /// two of us fight for the clipboard.
    static constexpr std::chrono::milliseconds DELAY{150};

    /// A program that clears the clipboard as it ends is gone within this time.
    static constexpr std::chrono::milliseconds LONGEST_END{2000};

    enum class Verdict { Never, NotYet, Now };

    /// To be called when the owner is lost, with what it had offered. False when that is not to be served on.
    bool begin(OwnerLoss loss, ContentSource source, const SelectionContent& content);

    /// To be called when the clipboard has an owner again.
    void cancel() { m_content = {}; }

    /// What the lost owner had offered; empty when nothing is to be served on.
    const SelectionContent& content() const { return m_content; }

    Verdict verdict(bool hasOwnerAgain, bool isFormerOwnerRunning, std::chrono::milliseconds sinceLoss) const;

private:
    SelectionContent m_content;
    OwnerLoss m_loss = OwnerLoss::Gone;
};

} // namespace zamber::freedesktop::selection
