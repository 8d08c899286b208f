// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

namespace zamber {
class LoginItem;
}

namespace zamber::install {

/// The switch for starting at login. It keeps no state of its own: what it reads is what the desktop has.
class LaunchAtLoginManager final {
public:
    explicit LaunchAtLoginManager(LoginItem& loginItem)
        : m_loginItem(loginItem) {}

    /// A registration that the user still has to approve, or has switched off, is not enabled.
    bool isEnabled() const;

    /// Registers or unregisters at once, whatever the state is, and logs what came of it.
    void setEnabled(bool isEnabled);

private:
    LoginItem& m_loginItem;
};

} // namespace zamber::install
