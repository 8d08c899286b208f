// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "ui/Palette.h"

#include "platform/Appearance.h"

#include <QPalette>

#include <algorithm>
#include <cmath>
#include <utility>

namespace zamber::ui {

namespace {

constexpr double MINIMUM_ACCENT_CONTRAST = 3.0; // an accent marks symbols and grounds, not small text
constexpr int ACCENT_STEP_PERCENT = 108;
constexpr double MINIMUM_TEXT_CONTRAST = 4.5;

QColor black(double opacity) {
    return QColor::fromRgbF(0.0F, 0.0F, 0.02F, static_cast<float>(opacity));
}

QColor white(double opacity) {
    return QColor::fromRgbF(1.0F, 1.0F, 1.0F, static_cast<float>(opacity));
}

/// The user's accent, moved away from the ground step by step until it stands out from it.
QColor legibleAccent(QColor accent, const QColor& ground, bool isDark) {
    constexpr int mostSteps = 24;
    for (int step = 0; step < mostSteps && contrastRatio(accent, ground) < MINIMUM_ACCENT_CONTRAST; ++step) {
        // Black has no lightness to multiply, so each step also mixes in a little white or black.
        accent =
            isDark ? composed(white(0.06), accent.lighter(ACCENT_STEP_PERCENT)) : accent.darker(ACCENT_STEP_PERCENT);
    }
    return accent;
}

/// The accent as a ground that its text can be read on: white where that takes only a little darkening, else black.
void fillWithAccent(Palette& palette) {
    constexpr int mostSteps = 5;
    palette.accentFill = palette.accent;
    palette.onAccent = Qt::white;
    for (int step = 0; contrastRatio(Qt::white, palette.accentFill) < MINIMUM_TEXT_CONTRAST; ++step) {
        if (step == mostSteps) {
            palette.accentFill = palette.accent;
            palette.onAccent = Qt::black;
            return;
        }
        palette.accentFill = palette.accentFill.darker(104);
    }
}

double linear(float channel) {
    const auto value = static_cast<double>(channel);
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& color) {
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

} // namespace

Palette Palette::light(const QColor& userAccent) {
    Palette palette;
    palette.primary = black(0.88);
    palette.secondary = black(0.68);
    palette.tertiary = black(0.62);
    palette.quaternary = black(0.575);
    palette.tertiaryFill = black(0.06);
    palette.quinaryFill = black(0.05);
    palette.separator = black(0.14);
    palette.windowBorder = black(0.16);
    palette.ultraThinMaterial = QColor(0xFA, 0xFA, 0xFC);
    palette.barMaterial = QColor(0xF2, 0xF2, 0xF5);
    palette.accent = legibleAccent(userAccent, palette.ultraThinMaterial, false);
    fillWithAccent(palette);
    palette.red = QColor(0xD7, 0x26, 0x2F);
    palette.blue = QColor(0x0A, 0x5F, 0xD0);
    palette.orange = QColor(0xD9, 0x6B, 0x00);
    palette.purple = QColor(0x93, 0x45, 0xCF);
    palette.green = QColor(0x1F, 0x8A, 0x3B);
    palette.gray = QColor(0x76, 0x76, 0x7C);
    return palette;
}

Palette Palette::dark(const QColor& userAccent) {
    Palette palette;
    palette.isDark = true;
    palette.primary = white(0.94);
    palette.secondary = white(0.70);
    palette.tertiary = white(0.61);
    palette.quaternary = white(0.545);
    palette.tertiaryFill = white(0.10);
    palette.quinaryFill = white(0.075);
    palette.separator = white(0.16);
    palette.windowBorder = white(0.17);
    palette.ultraThinMaterial = QColor(0x27, 0x27, 0x2B);
    palette.barMaterial = QColor(0x2D, 0x2D, 0x32);
    palette.accent = legibleAccent(userAccent, palette.ultraThinMaterial, true);
    fillWithAccent(palette);
    palette.red = QColor(0xFF, 0x6B, 0x63);
    palette.blue = QColor(0x62, 0xA9, 0xFF);
    palette.orange = QColor(0xFF, 0xA0, 0x30);
    palette.purple = QColor(0xC7, 0x8F, 0xFF);
    palette.green = QColor(0x4C, 0xD2, 0x68);
    palette.gray = QColor(0xA0, 0xA0, 0xA6);
    return palette;
}

Palette Palette::of(const Appearance& desktop) {
    return desktop.isDark() ? dark(desktop.accentColor()) : light(desktop.accentColor());
}

QColor Palette::primaryAt(double opacity) const {
    QColor color = primary;
    color.setAlphaF(static_cast<float>(opacity));
    return color;
}

QPalette Palette::forWidgets() const {
    const QColor ground = ultraThinMaterial;
    const QColor raised = isDark ? barMaterial : QColor(Qt::white);
    const QColor disabled = composed(faded(primary, 0.4), ground);

    QPalette palette(composed(primary, ground), ground, ground.lighter(130), ground.darker(150), ground.darker(120),
                     composed(primary, ground), raised);
    palette.setColor(QPalette::Base, raised);
    palette.setColor(QPalette::AlternateBase, ground);
    palette.setColor(QPalette::Button, ground);
    palette.setColor(QPalette::ButtonText, composed(primary, ground));
    palette.setColor(QPalette::BrightText, red); // of what cannot be undone
    palette.setColor(QPalette::PlaceholderText, tertiary);
    palette.setColor(QPalette::Highlight, accentFill);
    palette.setColor(QPalette::HighlightedText, onAccent);
    palette.setColor(QPalette::Link, blue);
    palette.setColor(QPalette::ToolTipBase, raised);
    palette.setColor(QPalette::ToolTipText, composed(primary, ground));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, role, disabled);
    }
    return palette;
}

QColor faded(QColor color, double factor) {
    color.setAlphaF(color.alphaF() * static_cast<float>(std::clamp(factor, 0.0, 1.0)));
    return color;
}

QColor composed(const QColor& color, const QColor& ground) {
    const float opacity = color.alphaF();
    const auto mixed = [opacity](float over, float under) { return over * opacity + under * (1.0F - opacity); };
    return QColor::fromRgbF(mixed(color.redF(), ground.redF()), mixed(color.greenF(), ground.greenF()),
                            mixed(color.blueF(), ground.blueF()));
}

double contrastRatio(const QColor& text, const QColor& ground) {
    double lighter = luminance(composed(text, ground));
    double darker = luminance(ground);
    if (lighter < darker) {
        std::swap(lighter, darker);
    }
    return (lighter + 0.05) / (darker + 0.05);
}

} // namespace zamber::ui
