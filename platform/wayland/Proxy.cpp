// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/wayland/Proxy.h"

#include <ext-data-control-v1.h>
#include <kde-fake-input.h>
#include <kde-keystate.h>
#include <kde-plasma-shell.h>
#include <kde-plasma-window-management.h>
#include <virtual-keyboard-unstable-v1.h>
#include <wayland-client.h>
#include <wlr-data-control-unstable-v1.h>
#include <wlr-foreign-toplevel-management-unstable-v1.h>

namespace zamber::wayland {

void Destroyer::operator()(wl_display* object) const {
    wl_display_disconnect(object);
}

void Destroyer::operator()(wl_registry* object) const {
    wl_registry_destroy(object);
}

void Destroyer::operator()(wl_seat* object) const {
    wl_seat_destroy(object);
}

void Destroyer::operator()(wl_keyboard* object) const {
    wl_keyboard_destroy(object);
}

void Destroyer::operator()(ext_data_control_manager_v1* object) const {
    ext_data_control_manager_v1_destroy(object);
}

void Destroyer::operator()(ext_data_control_device_v1* object) const {
    ext_data_control_device_v1_destroy(object);
}

void Destroyer::operator()(ext_data_control_source_v1* object) const {
    ext_data_control_source_v1_destroy(object);
}

void Destroyer::operator()(ext_data_control_offer_v1* object) const {
    ext_data_control_offer_v1_destroy(object);
}

void Destroyer::operator()(zwlr_data_control_manager_v1* object) const {
    zwlr_data_control_manager_v1_destroy(object);
}

void Destroyer::operator()(zwlr_data_control_device_v1* object) const {
    zwlr_data_control_device_v1_destroy(object);
}

void Destroyer::operator()(zwlr_data_control_source_v1* object) const {
    zwlr_data_control_source_v1_destroy(object);
}

void Destroyer::operator()(zwlr_data_control_offer_v1* object) const {
    zwlr_data_control_offer_v1_destroy(object);
}

void Destroyer::operator()(zwlr_foreign_toplevel_manager_v1* object) const {
    zwlr_foreign_toplevel_manager_v1_destroy(object);
}

void Destroyer::operator()(zwlr_foreign_toplevel_handle_v1* object) const {
    zwlr_foreign_toplevel_handle_v1_destroy(object);
}

void Destroyer::operator()(zwp_virtual_keyboard_manager_v1* object) const {
    zwp_virtual_keyboard_manager_v1_destroy(object);
}

void Destroyer::operator()(zwp_virtual_keyboard_v1* object) const {
    zwp_virtual_keyboard_v1_destroy(object);
}

void Destroyer::operator()(org_kde_kwin_fake_input* object) const {
    org_kde_kwin_fake_input_destroy(object);
}

void Destroyer::operator()(org_kde_kwin_keystate* object) const {
    if (org_kde_kwin_keystate_get_version(object) < ORG_KDE_KWIN_KEYSTATE_DESTROY_SINCE_VERSION) {
        wl_proxy_destroy(reinterpret_cast<wl_proxy*>(object));
    } else {
        org_kde_kwin_keystate_destroy(object);
    }
}

void Destroyer::operator()(org_kde_plasma_window_management* object) const {
    org_kde_plasma_window_management_destroy(object);
}

void Destroyer::operator()(org_kde_plasma_window* object) const {
    org_kde_plasma_window_destroy(object);
}

void Destroyer::operator()(org_kde_plasma_shell* object) const {
    org_kde_plasma_shell_destroy(object);
}

void Destroyer::operator()(org_kde_plasma_surface* object) const {
    org_kde_plasma_surface_destroy(object);
}

} // namespace zamber::wayland
