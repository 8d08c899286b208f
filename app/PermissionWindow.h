// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

#include <functional>

namespace zamber {
class Appearance;
class Symbols;
} // namespace zamber

namespace zamber::app {

class PermissionView;

/// A small window that floats above ordinary ones while the permission to post key events is missing. The user can move
/// it and close it, which hides it, and do nothing else with it. It appears without taking the keyboard.
class PermissionWindow final : public QWidget {
    Q_OBJECT

public:
    /// `showDialog` is for desktops that ask the user for the permission themselves, when told to.
    PermissionWindow(const Appearance& appearance, const Symbols& symbols, std::function<void()> showDialog = {});

    void showInCentre();

    /// Takes over the desktop's look. To be called when the appearance has changed.
    void updateAppearance();

private:
    PermissionView* m_view;
};

} // namespace zamber::app
