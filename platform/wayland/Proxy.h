// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

struct ext_data_control_device_v1;
struct ext_data_control_manager_v1;
struct ext_data_control_offer_v1;
struct ext_data_control_source_v1;
struct wl_display;
struct wl_registry;
struct wl_seat;
struct zwlr_data_control_device_v1;
struct zwlr_data_control_manager_v1;
struct zwlr_data_control_offer_v1;
struct zwlr_data_control_source_v1;
struct zwlr_foreign_toplevel_handle_v1;
struct zwlr_foreign_toplevel_manager_v1;
struct zwp_virtual_keyboard_manager_v1;
struct zwp_virtual_keyboard_v1;

namespace zamber::wayland {

/// Destroys an object of the compositor's by the request that its interface has for this.
struct Destroyer {
    void operator()(wl_display* object) const;
    void operator()(wl_registry* object) const;
    void operator()(wl_seat* object) const;
    void operator()(ext_data_control_manager_v1* object) const;
    void operator()(ext_data_control_device_v1* object) const;
    void operator()(ext_data_control_source_v1* object) const;
    void operator()(ext_data_control_offer_v1* object) const;
    void operator()(zwlr_data_control_manager_v1* object) const;
    void operator()(zwlr_data_control_device_v1* object) const;
    void operator()(zwlr_data_control_source_v1* object) const;
    void operator()(zwlr_data_control_offer_v1* object) const;
    void operator()(zwlr_foreign_toplevel_manager_v1* object) const;
    void operator()(zwlr_foreign_toplevel_handle_v1* object) const;
    void operator()(zwp_virtual_keyboard_manager_v1* object) const;
    void operator()(zwp_virtual_keyboard_v1* object) const;
};

/// Owns one object of the compositor's. To be destroyed before the connection that the object was made by.
template <class Object>
using Proxy = std::unique_ptr<Object, Destroyer>;

} // namespace zamber::wayland
