// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/wayland/Toplevels.h"

#include <vector>

namespace zamber::wayland {

/// Keeps the windows that a compositor tells of, by whatever protocol.
class ListedToplevels : public Toplevels {
public:
    ~ListedToplevels() override;

    std::optional<Toplevel> active() const override;
    bool isOpen(std::uint64_t handle) const override;
    void activate(std::uint64_t handle) override;
    void catchUp() override;

protected:
    /// A window as it was last described. A derived class has the protocol's object, which it listens to.
    class Window {
    public:
        explicit Window(ListedToplevels& owner);
        virtual ~Window() = default;
        Q_DISABLE_COPY_MOVE(Window)

        /// Asks the compositor to bring the window to the front.
        virtual void activate() = 0;

        bool isActive() const { return m_isActive; }
        void setActive(bool isActive);

        /// To be called when the window has gone. It is destroyed.
        void remove();

        Toplevel described;

    private:
        ListedToplevels& m_owner;
        bool m_isActive = false;
    };

    /// The connection outlives the windows.
    explicit ListedToplevels(Connection& connection);

    void add(std::unique_ptr<Window> window);

    /// Waits until the windows that are open have been told of, and the properties of each.
    void readAll();

private:
    Connection& m_connection;
    std::vector<std::unique_ptr<Window>> m_windows;
    std::uint64_t m_lastHandle = 0;
};

} // namespace zamber::wayland
