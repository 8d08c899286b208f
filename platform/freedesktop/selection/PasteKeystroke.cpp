// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/selection/PasteKeystroke.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace zamber::freedesktop::selection {

namespace {

struct Row {
    std::string_view windowClass; // in lower case
    PasteKeystroke keystroke;
};

constexpr std::array TABLE{
    Row{"alacritty", PasteKeystroke::ControlShiftV},
    Row{"com.mitchellh.ghostty", PasteKeystroke::ControlShiftV},
    Row{"com.raggesilver.blackbox", PasteKeystroke::ControlShiftV},
    Row{"contour", PasteKeystroke::ControlShiftV},
    Row{"cool-retro-term", PasteKeystroke::ControlShiftV},
    Row{"deepin-terminal", PasteKeystroke::ControlShiftV},
    Row{"foot", PasteKeystroke::ControlShiftV},
    Row{"footclient", PasteKeystroke::ControlShiftV},
    Row{"gnome-terminal", PasteKeystroke::ControlShiftV},
    Row{"gnome-terminal-server", PasteKeystroke::ControlShiftV},
    Row{"guake", PasteKeystroke::ControlShiftV},
    Row{"hyper", PasteKeystroke::ControlShiftV},
    Row{"io.elementary.terminal", PasteKeystroke::ControlShiftV},
    Row{"kgx", PasteKeystroke::ControlShiftV},
    Row{"kitty", PasteKeystroke::ControlShiftV},
    Row{"konsole", PasteKeystroke::ControlShiftV},
    Row{"lxterminal", PasteKeystroke::ControlShiftV},
    Row{"mate-terminal", PasteKeystroke::ControlShiftV},
    Row{"org.gnome.console", PasteKeystroke::ControlShiftV},
    Row{"org.gnome.ptyxis", PasteKeystroke::ControlShiftV},
    Row{"org.gnome.terminal", PasteKeystroke::ControlShiftV},
    Row{"org.kde.konsole", PasteKeystroke::ControlShiftV},
    Row{"org.kde.yakuake", PasteKeystroke::ControlShiftV},
    Row{"org.wezfurlong.wezterm", PasteKeystroke::ControlShiftV},
    Row{"ptyxis", PasteKeystroke::ControlShiftV},
    Row{"qterminal", PasteKeystroke::ControlShiftV},
    Row{"rio", PasteKeystroke::ControlShiftV},
    Row{"roxterm", PasteKeystroke::ControlShiftV},
    Row{"sakura", PasteKeystroke::ControlShiftV},
    Row{"st-256color", PasteKeystroke::ControlShiftV},
    Row{"terminator", PasteKeystroke::ControlShiftV},
    Row{"termite", PasteKeystroke::ControlShiftV},
    Row{"terminology", PasteKeystroke::ControlShiftV},
    Row{"tilda", PasteKeystroke::ControlShiftV},
    Row{"tilix", PasteKeystroke::ControlShiftV},
    Row{"xfce4-terminal", PasteKeystroke::ControlShiftV},
    Row{"yakuake", PasteKeystroke::ControlShiftV},
    Row{"aterm", PasteKeystroke::ShiftInsert},
    Row{"eterm", PasteKeystroke::ShiftInsert},
    Row{"mlterm", PasteKeystroke::ShiftInsert},
    Row{"rxvt", PasteKeystroke::ShiftInsert},
    Row{"urxvt", PasteKeystroke::ShiftInsert},
    Row{"pterm", PasteKeystroke::ShiftInsert},
    Row{"uxterm", PasteKeystroke::ShiftInsert},
    Row{"xterm", PasteKeystroke::ShiftInsert},
    // Editors in which Ctrl+V scrolls, or marks a column.
    Row{"emacs", PasteKeystroke::ShiftInsert},
    Row{"emacs-gtk", PasteKeystroke::ShiftInsert},
    Row{"emacs-lucid", PasteKeystroke::ShiftInsert},
    Row{"gvim", PasteKeystroke::ShiftInsert},
};

} // namespace

PasteKeystroke pasteKeystrokeOf(const QString& windowClass) {
    const std::string name = windowClass.toLower().toStdString();
    const auto* const row = std::ranges::find(TABLE, std::string_view(name), &Row::windowClass);
    return row == TABLE.end() ? PasteKeystroke::ControlV : row->keystroke;
}

} // namespace zamber::freedesktop::selection
