// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/x11/X11Workspace.h"

#include "platform/freedesktop/session/Programs.h"
#include "platform/freedesktop/session/Trash.h"

#include <QCoreApplication>
#include <QUrl>

#include <limits>
#include <utility>

namespace zamber::x11 {

namespace {

/// The application of all windows of Wayland; no window of X gets a number as high.
constexpr std::uint64_t WINDOW_OF_WAYLAND = std::numeric_limits<std::uint64_t>::max();

} // namespace

X11Workspace::X11Workspace(Connection& connection, Windows& windows, NameOfClass nameOfClass, Otherwise otherwise)
    : m_connection(connection)
    , m_windows(windows)
    , m_nameOfClass(std::move(nameOfClass))
    , m_otherwise(otherwise) {
    connection.addEventHandler([this](const xcb_generic_event_t& event) {
        if (codeOf(event) == XCB_DESTROY_NOTIFY) {
            m_handles.erase(as<xcb_destroy_notify_event_t>(event).window);
        }
    });
}

void X11Workspace::openNewInstance(const QString& path, Started done) {
    const auto started = freedesktop::session::Programs().startNewInstance(path);
    QMetaObject::invokeMethod(
        QCoreApplication::instance(),
        [done = std::move(done), error = started ? std::nullopt : std::optional(started.error())] { done(error); },
        Qt::QueuedConnection);
}

std::expected<void, QString> X11Workspace::moveToTrash(const QString& path) {
    return freedesktop::session::moveFileToTrash(path);
}

std::optional<RunningApplication> X11Workspace::frontmostApplication() {
    const std::optional<xcb_window_t> window = m_windows.activeWindow();
    if (!window) {
        return m_otherwise == Otherwise::Nothing
                   ? std::nullopt
                   : std::optional(RunningApplication{.handle = WINDOW_OF_WAYLAND, .localizedName = std::nullopt});
    }
    auto found = m_handles.find(*window);
    if (found == m_handles.end()) {
        m_connection.watch(*window, XCB_EVENT_MASK_STRUCTURE_NOTIFY);
        found = m_handles.emplace(*window, ++m_lastHandle).first;
    }
    return RunningApplication{.handle = found->second,
                              .processId = m_windows.processId(*window).value_or(0),
                              .localizedName = m_nameOfClass(m_windows.windowClass(*window))};
}

void X11Workspace::activate(const RunningApplication& application) {
    if (const std::optional<xcb_window_t> window = windowOf(application)) {
        m_windows.activate(*window);
    }
}

void X11Workspace::open(const QUrl& address) {
    if (const auto opened = freedesktop::session::Programs().open(address); !opened) {
        qWarning("%s is not opened: %s", qUtf8Printable(address.toString()), qUtf8Printable(opened.error()));
    }
}

std::optional<xcb_window_t> X11Workspace::windowOf(const RunningApplication& application) const {
    for (const auto& [window, handle] : m_handles) {
        if (handle == application.handle) {
            return window;
        }
    }
    return std::nullopt;
}

} // namespace zamber::x11
