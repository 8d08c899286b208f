// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/selection/PasteKeystroke.h"

#include <gtest/gtest.h>

namespace zamber::freedesktop::selection {

namespace {

TEST(PasteKeystroke, EditorsAndBrowsersGetControlV) {
    for (const char* name : {"Mousepad", "Gedit", "Geany", "kate", "NEdit", "Scite", "firefox", "Chromium", "Code", "",
                             "some-unknown-program"}) {
        EXPECT_EQ(pasteKeystrokeOf(QString::fromLatin1(name)), PasteKeystroke::ControlV) << name;
    }
}

TEST(PasteKeystroke, TerminalsGetControlShiftV) {
    for (const char* name :
         {"Gnome-terminal", "konsole", "Xfce4-terminal", "kitty", "Alacritty", "Tilix", "Terminator",
          "org.wezfurlong.wezterm", "st-256color", "foot", "org.kde.konsole", "org.gnome.Terminal"}) {
        EXPECT_EQ(pasteKeystrokeOf(QString::fromLatin1(name)), PasteKeystroke::ControlShiftV) << name;
    }
}

TEST(PasteKeystroke, OldTerminalsGetShiftInsert) {
    for (const char* name : {"XTerm", "UXTerm", "URxvt", "Eterm", "mlterm", "Pterm"}) {
        EXPECT_EQ(pasteKeystrokeOf(QString::fromLatin1(name)), PasteKeystroke::ShiftInsert) << name;
    }
}

TEST(PasteKeystroke, EditorsInWhichControlVMeansSomethingElseGetShiftInsert) {
    for (const char* name : {"Gvim", "Emacs", "Emacs-gtk", "Emacs-lucid"}) {
        EXPECT_EQ(pasteKeystrokeOf(QString::fromLatin1(name)), PasteKeystroke::ShiftInsert) << name;
    }
}

TEST(PasteKeystroke, ANameThatOnlyContainsATerminalsIsNone) {
    EXPECT_EQ(pasteKeystrokeOf(QStringLiteral("kitty-theme-editor")), PasteKeystroke::ControlV);
}

} // namespace

} // namespace zamber::freedesktop::selection
