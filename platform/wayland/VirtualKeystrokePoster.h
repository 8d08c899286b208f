// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/freedesktop/selection/PasteQueue.h"
#include "platform/wayland/Toplevels.h"

#include <optional>

namespace zamber::wayland {

class VirtualKeyboard;

/// Types the paste keystroke by a virtual keyboard. Keys that the user holds belong to another keyboard and do not
/// change the keystroke.
class VirtualKeystrokePoster final : public freedesktop::selection::PasteQueue {
    Q_OBJECT

public:
    VirtualKeystrokePoster(VirtualKeyboard& keyboard, Toplevels& toplevels,
                           freedesktop::selection::SelectionPasteboard& pasteboard, Scheduler& scheduler);

private:
    using PasteKeystroke = freedesktop::selection::PasteKeystroke;

    std::optional<Window> ownWindowInFront() const override;
    bool isReady() const override;
    std::optional<Window> windowToTypeInto() const override;
    PasteKeystroke keystrokeFor(Window window) const override;
    bool type(Window window, PasteKeystroke keystroke) override;

    VirtualKeyboard& m_keyboard;
    Toplevels& m_toplevels;
};

} // namespace zamber::wayland
