// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/x11/X11KeystrokePoster.h"

namespace zamber::freedesktop::portal {
class PortalHotKeyCenter;
class PortalKeyboard;
} // namespace zamber::freedesktop::portal

namespace zamber::x11 {

/// Types the paste keystroke on a Wayland compositor that tells nothing of its windows: into programs of X by XTEST,
/// and by a portal where none of those is in front, which is then taken for a window of Wayland being there. Nobody
/// knows which, so the keystroke is the usual one.
class XWaylandKeystrokePoster final : public X11KeystrokePoster {
    Q_OBJECT

public:
    /// What X's poster works with.
    struct PartsOfX {
        Connection& connection;
        Keyboard& keyboard;
        Windows& windows;
        X11HotKeyCenter& hotKeysOfX;
        X11Workspace& workspace;
        freedesktop::selection::SelectionPasteboard& pasteboard;
        Scheduler& scheduler;
    };

    /// All of them outlive the poster.
    XWaylandKeystrokePoster(const PartsOfX& partsOfX, freedesktop::portal::PortalKeyboard& portalKeyboard,
                            freedesktop::portal::PortalHotKeyCenter& hotKeys);

private:
    void beginWaiting() override;
    void endWaiting() override;
    bool isReady() const override;
    std::optional<Window> windowToTypeInto() const override;
    PasteKeystroke keystrokeFor(Window window) const override;
    bool type(Window window, PasteKeystroke keystroke) override;
    bool mayBeReader(std::uint32_t window) const override;

    void openWhereNeeded();

    Keyboard& m_keyboard;
    Windows& m_windows;
    freedesktop::portal::PortalKeyboard& m_portalKeyboard;
    freedesktop::portal::PortalHotKeyCenter& m_hotKeys;
    bool m_isWaiting = false;
    bool m_hasTypedIntoWayland = false;
};

} // namespace zamber::x11
