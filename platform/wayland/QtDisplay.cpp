// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/wayland/QtDisplay.h"

#include <QByteArray>
#include <QGuiApplication>
#include <QLibrary>

#include <wayland-client.h>

namespace zamber::wayland {

namespace {

using ResourceOfIntegration = void* (*)(void* self, const QByteArray& name);

constexpr int LIBRARY_VERSION = 6;

} // namespace

QtDisplay::QtDisplay() {
    if (QGuiApplication::platformName() != QStringLiteral("wayland")) {
        return;
    }
    // Two virtual functions of the class behind platformNativeInterface(), called by their names.
    QLibrary library(QStringLiteral("Qt6WaylandClient"), LIBRARY_VERSION);
    const auto resourceOfIntegration = reinterpret_cast<ResourceOfIntegration>(
        library.resolve("_ZN15QtWaylandClient23QWaylandNativeInterface28nativeResourceForIntegrationERK10QByteArray"));
    m_resourceOfWindow = reinterpret_cast<decltype(m_resourceOfWindow)>(library.resolve(
        "_ZN15QtWaylandClient23QWaylandNativeInterface23nativeResourceForWindowERK10QByteArrayP7QWindow"));
    m_interface = QGuiApplication::platformNativeInterface();
    if (resourceOfIntegration != nullptr && m_interface != nullptr) {
        m_display = static_cast<wl_display*>(resourceOfIntegration(m_interface, "wl_display"));
    }
}

wl_surface* QtDisplay::surfaceOf(QWindow& window) const {
    return m_display != nullptr && m_resourceOfWindow != nullptr
               ? static_cast<wl_surface*>(m_resourceOfWindow(m_interface, "surface", &window))
               : nullptr;
}

void QtDisplay::roundTrip() const {
    if (m_display != nullptr) {
        wl_event_queue* const queue = wl_display_create_queue(m_display);
        wl_display_roundtrip_queue(m_display, queue);
        wl_event_queue_destroy(queue);
    }
}

} // namespace zamber::wayland
