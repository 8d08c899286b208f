// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/freedesktop/tray/PointerButtons.h"

#include <utility>
#include <vector>

namespace zamber {

/// The user's hand on the pointer's buttons. Presses are told of at once, or at the next `catchUp` after `hold`.
class FakePointerButtons final : public freedesktop::tray::PointerButtons {
public:
    void setListening(Listening listening) override { isListening = listening == Listening::On; }

    void catchUp() override {
        for (const auto& [button, place] : std::exchange(m_late, {})) {
            Q_EMIT pressed(button, place);
        }
    }

    void press(Qt::MouseButton button, QPoint place) {
        if (!isListening) {
            return;
        }
        m_late.emplace_back(button, place);
        if (!isLate) {
            catchUp();
        }
    }

    void release() {
        if (isListening) {
            Q_EMIT released();
        }
    }

    bool isListening = false;
    bool isLate = false; ///< presses are still under way when a click is told of

private:
    std::vector<std::pair<Qt::MouseButton, QPoint>> m_late;
};

} // namespace zamber
