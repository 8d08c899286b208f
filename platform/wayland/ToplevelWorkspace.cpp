// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/wayland/ToplevelWorkspace.h"

#include "platform/freedesktop/session/Programs.h"
#include "platform/freedesktop/session/Trash.h"
#include "platform/wayland/Toplevels.h"

#include <QCoreApplication>
#include <QUrl>

#include <utility>

namespace zamber::wayland {

ToplevelWorkspace::ToplevelWorkspace(Toplevels& toplevels, NameOfId nameOfId)
    : m_toplevels(toplevels)
    , m_nameOfId(std::move(nameOfId)) {}

void ToplevelWorkspace::openNewInstance(const QString& path, Started done) {
    const auto started = freedesktop::session::Programs().startNewInstance(path);
    QMetaObject::invokeMethod(
        QCoreApplication::instance(),
        [done = std::move(done), error = started ? std::nullopt : std::optional(started.error())] { done(error); },
        Qt::QueuedConnection);
}

std::expected<void, QString> ToplevelWorkspace::moveToTrash(const QString& path) {
    return freedesktop::session::moveFileToTrash(path);
}

std::optional<RunningApplication> ToplevelWorkspace::frontmostApplication() {
    const std::optional<Toplevels::Toplevel> front = m_toplevels.active();
    if (!front) {
        return std::nullopt;
    }
    return RunningApplication{
        .handle = front->handle, .processId = 0, .localizedName = m_nameOfId(front->applicationId)};
}

void ToplevelWorkspace::activate(const RunningApplication& application) {
    m_toplevels.activate(application.handle);
}

void ToplevelWorkspace::open(const QUrl& address) {
    if (const auto opened = freedesktop::session::Programs().open(address); !opened) {
        qWarning("%s is not opened: %s", qUtf8Printable(address.toString()), qUtf8Printable(opened.error()));
    }
}

} // namespace zamber::wayland
