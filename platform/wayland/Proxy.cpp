// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/wayland/Proxy.h"

#include <ext-data-control-v1.h>
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

} // namespace zamber::wayland
