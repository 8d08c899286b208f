// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/wayland/VirtualKeystrokePoster.h"

#include "platform/wayland/PasteKeyboard.h"

#include <unistd.h>

namespace zamber::wayland {

namespace {

/// Whether a window is this program's: it has the program's id, or, by way of XWayland, the program's window class.
bool isOurs(const Toplevels::Toplevel& toplevel) {
    return toplevel.processId == getpid() ||
           toplevel.applicationId.compare(QStringLiteral("app.zamber.Zamber"), Qt::CaseInsensitive) == 0 ||
           toplevel.applicationId.compare(QStringLiteral("zamber"), Qt::CaseInsensitive) == 0;
}

} // namespace

VirtualKeystrokePoster::VirtualKeystrokePoster(PasteKeyboard& keyboard, Toplevels& toplevels,
                                               freedesktop::selection::SelectionPasteboard& pasteboard,
                                               Scheduler& scheduler)
    : PasteQueue(pasteboard, scheduler)
    , m_keyboard(keyboard)
    , m_toplevels(toplevels) {
    connect(&toplevels, &Toplevels::activeChanged, this, &VirtualKeystrokePoster::postWhenReady);
    connect(&keyboard, &PasteKeyboard::readyChanged, this, &VirtualKeystrokePoster::postWhenReady);
}

std::optional<VirtualKeystrokePoster::Window> VirtualKeystrokePoster::ownWindowInFront() const {
    const std::optional<Toplevels::Toplevel> front = m_toplevels.active();
    return front && isOurs(*front) ? std::optional<Window>(front->handle) : std::nullopt;
}

bool VirtualKeystrokePoster::isReady() const {
    return m_keyboard.isReady() && isTargetInFront();
}

bool VirtualKeystrokePoster::isHeldUpByKeys() const {
    return m_keyboard.isBlocked();
}

bool VirtualKeystrokePoster::isTargetInFront() const {
    const std::optional<RunningApplication>& target = current().paste.target;
    if (target && m_toplevels.isOpen(target->handle)) {
        const std::optional<Toplevels::Toplevel> front = m_toplevels.active();
        return front && front->handle == target->handle;
    }
    return windowToTypeInto().has_value(); // there is no target, or it has quit: any program in front will do
}

std::optional<VirtualKeystrokePoster::Window> VirtualKeystrokePoster::windowToTypeInto() const {
    const std::optional<Toplevels::Toplevel> front = m_toplevels.active();
    if (!front) {
        return std::nullopt;
    }
    if (isOurs(*front)) {
        const std::optional<RunningApplication>& target = current().paste.target;
        const bool isMeant =
            target ? front->handle == target->handle : current().ownWindowInFront == Window{front->handle};
        return isMeant ? std::optional<Window>(front->handle) : std::nullopt;
    }
    return front->handle;
}

VirtualKeystrokePoster::PasteKeystroke VirtualKeystrokePoster::keystrokeFor(Window /*window*/) const {
    return m_keyboard.possibleFor(freedesktop::selection::pasteKeystrokeOf(m_toplevels.active()->applicationId));
}

bool VirtualKeystrokePoster::type(Window window, PasteKeystroke keystroke) {
    return windowToTypeInto() == window && m_keyboard.type(keystroke);
}

} // namespace zamber::wayland
