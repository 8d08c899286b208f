// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/freedesktop/selection/PasteQueue.h"
#include "platform/wayland/Toplevels.h"

#include <optional>

namespace zamber::wayland {

class PasteKeyboard;

/// Types the paste keystroke into the window that is in front, by a keyboard of the compositor's.
class VirtualKeystrokePoster final : public freedesktop::selection::PasteQueue {
    Q_OBJECT

public:
    VirtualKeystrokePoster(PasteKeyboard& keyboard, Toplevels& toplevels,
                           freedesktop::selection::SelectionPasteboard& pasteboard, Scheduler& scheduler);

private:
    using PasteKeystroke = freedesktop::selection::PasteKeystroke;

    std::optional<Window> ownWindowInFront() const override;
    bool isReady() const override;
    bool isHeldUpByKeys() const override;
    bool isTargetInFront() const;
    std::optional<Window> windowToTypeInto() const override;
    PasteKeystroke keystrokeFor(Window window) const override;
    bool type(Window window, PasteKeystroke keystroke) override;

    PasteKeyboard& m_keyboard;
    Toplevels& m_toplevels;
};

} // namespace zamber::wayland
