// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT

// Presses keys as a user does and watches the popover's drawing: how long until its window is there, and until the last
// of it has been drawn. For popover_cost.py; one line of JSON for each line "<what> <argument>" that it reads.
//
//   open           the hot key, with the popover closed
//   key <code>     an X key code, with the popover open
//   button <n>     a mouse button (4 and 5 turn the wheel) in the middle of the popover
#include <poll.h>
#include <xcb/damage.h>
#include <xcb/xcb.h>
#include <xcb/xtest.h>

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>

namespace {

using Clock = std::chrono::steady_clock;
using namespace std::chrono_literals;

constexpr xcb_keycode_t SUPER = 133;
constexpr xcb_keycode_t SHIFT = 50;
constexpr xcb_keycode_t KEY_V = 55;
constexpr std::uint16_t LEAST_WIDTH = 300; // narrower windows of the program are no popovers
/// So long after the last drawing there will be no more.
constexpr auto CALM = 220ms;
constexpr int SEARCH_TOP = 44;
constexpr int SEARCH_BOTTOM = 84;

template <class Reply>
std::unique_ptr<Reply, decltype(&std::free)> owned(Reply* reply) {
    return {reply, &std::free};
}

double milliseconds(Clock::duration duration) {
    return std::chrono::duration<double, std::milli>(duration).count();
}

class Probe {
public:
    Probe()
        : m_connection(xcb_connect(nullptr, nullptr))
        , m_root(xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root) {
        const std::uint32_t mask = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
        xcb_change_window_attributes(m_connection, m_root, XCB_CW_EVENT_MASK, &mask);
        const auto* extension = xcb_get_extension_data(m_connection, &xcb_damage_id);
        m_damageEvent = static_cast<std::uint8_t>(extension->first_event + XCB_DAMAGE_NOTIFY);
        owned(xcb_damage_query_version_reply(m_connection, xcb_damage_query_version(m_connection, 1, 1), nullptr));
        xcb_damage_create(m_connection, xcb_generate_id(m_connection), m_root, XCB_DAMAGE_REPORT_LEVEL_RAW_RECTANGLES);
        xcb_flush(m_connection);
    }
    ~Probe() { xcb_disconnect(m_connection); }
    Probe(const Probe&) = delete;
    Probe& operator=(const Probe&) = delete;

    void open() {
        forgetEvents();
        m_window = XCB_NONE;
        const auto start = Clock::now();
        fake(XCB_KEY_PRESS, SUPER);
        fake(XCB_KEY_PRESS, SHIFT);
        fake(XCB_KEY_PRESS, KEY_V);
        fake(XCB_KEY_RELEASE, KEY_V);
        fake(XCB_KEY_RELEASE, SHIFT);
        fake(XCB_KEY_RELEASE, SUPER);
        xcb_flush(m_connection);
        report(watch(start));
    }

    void press(std::uint8_t pressType, std::uint8_t releaseType, std::uint8_t detail) {
        point(pressType == XCB_BUTTON_PRESS ? m_place.height / 2 : (SEARCH_TOP + SEARCH_BOTTOM) / 2);
        watch(Clock::now());
        const auto start = Clock::now();
        fake(pressType, detail);
        fake(releaseType, detail);
        xcb_flush(m_connection);
        report(watch(start));
    }

private:
    void fake(std::uint8_t type, std::uint8_t detail) {
        xcb_test_fake_input(m_connection, type, detail, XCB_CURRENT_TIME, XCB_NONE, 0, 0, 0);
    }

    void forgetEvents() {
        while (owned(xcb_poll_for_event(m_connection))) {
        }
    }

    struct Change {
        double mapped = 0;   ///< milliseconds until the popover was mapped
        double first = 0;    ///< until anything of it was drawn
        double complete = 0; ///< until the last of it was drawn
        int drawings = 0;
    };

    /// What is drawn of the popover until it has been quiet for a while.
    Change watch(Clock::time_point start) {
        Change change;
        auto lastChange = Clock::now();
        while (Clock::now() - lastChange < CALM) {
            const auto event = owned(xcb_poll_for_event(m_connection));
            if (!event) {
                waitForEvent();
                continue;
            }
            const auto now = Clock::now();
            if ((event->response_type & 0x7F) == XCB_MAP_NOTIFY) {
                const auto& mapped = *reinterpret_cast<const xcb_map_notify_event_t*>(event.get());
                if (m_window == XCB_NONE && takePlace(mapped.window)) {
                    change.mapped = milliseconds(now - start);
                    lastChange = now;
                }
            } else if ((event->response_type & 0x7F) == m_damageEvent && m_window != XCB_NONE) {
                const auto& damage = *reinterpret_cast<const xcb_damage_notify_event_t*>(event.get());
                if (concernsPopover(damage)) {
                    change.complete = milliseconds(now - start);
                    change.first = change.drawings++ == 0 ? change.complete : change.first;
                    lastChange = now;
                }
            }
        }
        return change;
    }

    void waitForEvent() const {
        pollfd descriptor{xcb_get_file_descriptor(m_connection), POLLIN, 0};
        poll(&descriptor, 1, 5);
    }

    bool takePlace(xcb_window_t window) {
        const auto geometry =
            owned(xcb_get_geometry_reply(m_connection, xcb_get_geometry(m_connection, window), nullptr));
        if (!geometry || geometry->width <= LEAST_WIDTH) {
            return false;
        }
        m_window = window;
        m_place = {geometry->x, geometry->y, geometry->width, geometry->height};
        watchContent();
        return true;
    }

    /// The window manager wraps the popover anew each time it is shown; the window inside stays the same.
    void watchContent() {
        const auto tree = owned(xcb_query_tree_reply(m_connection, xcb_query_tree(m_connection, m_window), nullptr));
        const int count = tree ? xcb_query_tree_children_length(tree.get()) : 0;
        for (int index = 0; index < count; ++index) {
            const xcb_window_t child = xcb_query_tree_children(tree.get())[index];
            const auto geometry =
                owned(xcb_get_geometry_reply(m_connection, xcb_get_geometry(m_connection, child), nullptr));
            if (geometry && geometry->width > LEAST_WIDTH && child != m_content) {
                m_content = child;
                xcb_damage_create(m_connection, xcb_generate_id(m_connection), m_content,
                                  XCB_DAMAGE_REPORT_LEVEL_RAW_RECTANGLES);
                xcb_flush(m_connection);
            }
        }
    }

    /// What is drawn on the window inside, or before that is known, on the screen there. The search field, whose caret
    /// blinks, does not count.
    bool concernsPopover(const xcb_damage_notify_event_t& damage) const {
        const bool isInside = damage.drawable == m_content;
        const int left = damage.area.x - (isInside ? 0 : m_place.x);
        const int top = damage.area.y - (isInside ? 0 : m_place.y);
        const int bottom = top + damage.area.height;
        const bool isOnPopover =
            left < m_place.width && left + damage.area.width > 0 && top < m_place.height && bottom > 0;
        return isOnPopover && left >= 0 && (top < SEARCH_TOP || bottom > SEARCH_BOTTOM);
    }

    /// Puts the pointer into the middle of the popover's line at that height.
    void point(int y) {
        xcb_warp_pointer(m_connection, XCB_NONE, m_window, 0, 0, 0, 0, static_cast<std::int16_t>(m_place.width / 2),
                         static_cast<std::int16_t>(y));
        xcb_flush(m_connection);
    }

    static void report(const Change& change) {
        std::printf("{\"mapped\": %.3f, \"first\": %.3f, \"complete\": %.3f, \"drawings\": %d}\n", change.mapped,
                    change.first, change.complete, change.drawings);
    }

    xcb_connection_t* m_connection;
    xcb_window_t m_root;
    std::uint8_t m_damageEvent = 0;
    xcb_window_t m_window = XCB_NONE;
    xcb_window_t m_content = XCB_NONE;
    xcb_rectangle_t m_place{};
};

} // namespace

int main() {
    Probe probe;
    char what[16];
    unsigned detail = 0;
    char line[64];
    while (std::fgets(line, sizeof line, stdin) != nullptr) {
        const int read = std::sscanf(line, "%15s %u", what, &detail);
        if (read >= 1 && std::strcmp(what, "open") == 0) {
            probe.open();
        } else if (read == 2 && std::strcmp(what, "key") == 0) {
            probe.press(XCB_KEY_PRESS, XCB_KEY_RELEASE, static_cast<std::uint8_t>(detail));
        } else if (read == 2 && std::strcmp(what, "button") == 0) {
            probe.press(XCB_BUTTON_PRESS, XCB_BUTTON_RELEASE, static_cast<std::uint8_t>(detail));
        } else {
            std::puts("{\"error\": \"what?\"}");
        }
        std::fflush(stdout);
    }
    return 0;
}
