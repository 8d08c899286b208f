// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "settings/SettingsUI.h"

#include "settings/SettingsTheme.h"
#include "ui/ContinuousCorners.h"
#include "ui/SymbolView.h"
#include "ui/TextLabel.h"
#include "ui/Typography.h"

#include <QFontMetrics>
#include <QPainter>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

namespace zamber::settings {

namespace {

constexpr int HEADER_SPACING = 8;
constexpr int HEADER_SYMBOL_POINTS = 18;
constexpr int HEADER_TITLE_POINTS = 20;
constexpr int HEADER_BOTTOM = 20;

constexpr int SECTION_TITLE_POINTS = 12;
constexpr int SECTION_TITLE_LEADING = 4;
constexpr int SECTION_TITLE_BOTTOM = 6;
constexpr int SECTION_BOTTOM = 16;

constexpr double CARD_RADIUS = 10;
constexpr double CARD_OPACITY = 0.04;
constexpr double CARD_BORDER_OPACITY = 0.06;
constexpr double BORDER_WIDTH = 0.5;

constexpr int ROW_HORIZONTAL = 16;
constexpr int ROW_VERTICAL = 12;

constexpr int KEY_POINTS = 12;
constexpr int KEY_SIDE = 24;
constexpr double KEY_RADIUS = 5;
constexpr double KEY_BORDER_OPACITY = 0.1;

constexpr int BODY_POINTS = 13;
constexpr int CAPTION_POINTS = 11;

void paintPlate(QWidget& plate, const QColor& ground, const QColor& border, double radius) {
    QPainter painter(&plate);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ground);
    painter.drawPath(ui::continuousRoundedRect(plate.rect(), radius));
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(border, BORDER_WIDTH));
    constexpr double half = BORDER_WIDTH / 2;
    painter.drawPath(ui::continuousRoundedRect(QRectF(plate.rect()).adjusted(half, half, -half, -half), radius - half));
}

class Card final : public QWidget {
public:
    explicit Card(const SettingsTheme& theme)
        : m_theme(theme) {
        theme.apply(this, [this](const ui::Palette&) { update(); });
    }

protected:
    void paintEvent(QPaintEvent*) override {
        const ui::Palette& palette = m_theme.palette();
        paintPlate(*this, palette.primaryAt(CARD_OPACITY), palette.primaryAt(CARD_BORDER_OPACITY), CARD_RADIUS);
    }

private:
    const SettingsTheme& m_theme;
};

class Divider final : public QWidget {
public:
    explicit Divider(const SettingsTheme& theme)
        : m_theme(theme) {
        setFixedHeight(1);
        theme.apply(this, [this](const ui::Palette&) { update(); });
    }

protected:
    void paintEvent(QPaintEvent*) override {
        // Whole pixels, as many on every line, wherever it lies at a scale that is a fraction.
        const double ratio = devicePixelRatioF();
        const double pixelsAbove = mapTo(window(), QPoint()).y() * ratio;
        const double top = (std::ceil(pixelsAbove) - pixelsAbove) / ratio;
        const QRectF line(ROW_HORIZONTAL, top, width() - 2 * ROW_HORIZONTAL, std::floor(ratio) / ratio);
        QPainter(this).fillRect(line, m_theme.palette().separator);
    }

private:
    const SettingsTheme& m_theme;
};

class SettingsKeyCap final : public QWidget {
public:
    SettingsKeyCap(const SettingsTheme& theme, const QString& key)
        : m_theme(theme)
        , m_key(key) {
        setFont(ui::roundedFont(KEY_POINTS, QFont::DemiBold));
        setAccessibleName(key);
        setFixedSize(std::max(KEY_SIDE, QFontMetrics(font()).horizontalAdvance(key)), KEY_SIDE);
        theme.apply(this, [this](const ui::Palette&) { update(); });
    }

protected:
    void paintEvent(QPaintEvent*) override {
        const ui::Palette& palette = m_theme.palette();
        paintPlate(*this, palette.tertiaryFill, palette.primaryAt(KEY_BORDER_OPACITY), KEY_RADIUS);
        QPainter painter(this);
        painter.setFont(font());
        painter.setPen(palette.primary);
        painter.drawText(rect(), Qt::AlignCenter, m_key);
    }

private:
    const SettingsTheme& m_theme;
    QString m_key;
};

} // namespace

QWidget* SettingsUI::header(const SettingsTheme& theme, const QString& title, const QString& icon) {
    auto* header = new QWidget;
    auto* line = new QHBoxLayout(header);
    line->setContentsMargins(0, 0, 0, HEADER_BOTTOM);
    line->setSpacing(HEADER_SPACING);
    auto* symbol = new ui::SymbolView(theme.symbols(), icon, HEADER_SYMBOL_POINTS, QFont::DemiBold);
    auto* label = new ui::TextLabel(title, ui::textFont(HEADER_TITLE_POINTS, QFont::Bold));
    line->addWidget(symbol, 0, Qt::AlignVCenter);
    line->addWidget(label, 0, Qt::AlignVCenter);
    line->addStretch();
    theme.apply(header, [symbol, label](const ui::Palette& palette) {
        symbol->setColor(palette.primary);
        label->setColor(palette.primary);
    });
    return header;
}

QWidget* SettingsUI::section(const SettingsTheme& theme, const QString& title, const SettingsContent& content) {
    auto* section = new QWidget;
    section->setAccessibleName(title);
    auto* column = new QVBoxLayout(section);
    column->setContentsMargins(0, 0, 0, SECTION_BOTTOM);
    column->setSpacing(0);
    if (!title.isEmpty()) {
        auto* label = new ui::TextLabel(title, ui::textFont(SECTION_TITLE_POINTS, QFont::Medium));
        theme.apply(label, [label](const ui::Palette& palette) { label->setColor(palette.secondary); });
        auto* line = new QHBoxLayout;
        line->setContentsMargins(SECTION_TITLE_LEADING, 0, 0, SECTION_TITLE_BOTTOM);
        line->addWidget(label);
        column->addLayout(line);
    }
    auto* card = new Card(theme);
    auto* rows = new QVBoxLayout(card);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(0);
    content(*rows);
    column->addWidget(card);
    return section;
}

QWidget* SettingsUI::row(const SettingsContent& content) {
    auto* row = new QWidget;
    auto* line = new QHBoxLayout(row);
    line->setContentsMargins(ROW_HORIZONTAL, ROW_VERTICAL, ROW_HORIZONTAL, ROW_VERTICAL);
    line->setSpacing(0);
    content(*line);
    return row;
}

QWidget* SettingsUI::keyCap(const SettingsTheme& theme, const QString& key) {
    return new SettingsKeyCap(theme, key);
}

QWidget* settingsHeader(const SettingsTheme& theme, const QString& title, const QString& icon) {
    return SettingsUI::header(theme, title, icon);
}

QWidget* settingsSection(const SettingsTheme& theme, const QString& title, const SettingsContent& content) {
    return SettingsUI::section(theme, title, content);
}

QWidget* settingsRow(const SettingsContent& content) {
    return SettingsUI::row(content);
}

QWidget* keyCapView(const SettingsTheme& theme, const QString& key) {
    return SettingsUI::keyCap(theme, key);
}

QWidget* settingsDivider(const SettingsTheme& theme) {
    return new Divider(theme);
}

ui::TextLabel* settingsLabel(const SettingsTheme& theme, const QString& text) {
    auto* label = new ui::TextLabel(text, ui::textFont(BODY_POINTS));
    theme.apply(label, [label](const ui::Palette& palette) { label->setColor(palette.primary); });
    return label;
}

ui::TextLabel* settingsCaption(const SettingsTheme& theme, const QString& text) {
    auto* label = new ui::TextLabel(text, ui::textFont(CAPTION_POINTS));
    theme.apply(label, [label](const ui::Palette& palette) { label->setColor(palette.tertiary); });
    return label;
}

} // namespace zamber::settings
