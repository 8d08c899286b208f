// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/selection/TakeOver.h"

namespace zamber::freedesktop::selection {

bool TakeOver::begin(OwnerLoss loss, ContentSource source, const SelectionContent& content) {
    if (source != ContentSource::Foreign) {
        m_content = {};
    } else if (!content.isEmpty()) { // else cleared once more, which changes nothing
        m_content = content;
    }
    m_loss = loss;
    return !m_content.isEmpty();
}

TakeOver::Verdict TakeOver::verdict(bool hasOwnerAgain, bool isFormerOwnerRunning,
                                    std::chrono::milliseconds sinceLoss) const {
    if (hasOwnerAgain || m_content.isEmpty()) {
        return Verdict::Never;
    }
    if (m_loss == OwnerLoss::Gone || !isFormerOwnerRunning) {
        return Verdict::Now;
    }
    return sinceLoss < LONGEST_END ? Verdict::NotYet : Verdict::Never;
}

} // namespace zamber::freedesktop::selection
