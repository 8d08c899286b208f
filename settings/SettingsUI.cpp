// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "settings/SettingsUI.h"

#include "settings/SettingsLook.h"
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
    explicit Card(const SettingsLook& look)
        : m_look(look) {
        look.apply(this, [this](const ui::Palette&) { update(); });
    }

protected:
    void paintEvent(QPaintEvent*) override {
        const ui::Palette& palette = m_look.palette();
        paintPlate(*this, palette.primaryAt(CARD_OPACITY), palette.primaryAt(CARD_BORDER_OPACITY), CARD_RADIUS);
    }

private:
    const SettingsLook& m_look;
};

class Divider final : public QWidget {
public:
    explicit Divider(const SettingsLook& look)
        : m_look(look) {
        setFixedHeight(1);
        look.apply(this, [this](const ui::Palette&) { update(); });
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter(this).fillRect(rect().adjusted(ROW_HORIZONTAL, 0, -ROW_HORIZONTAL, 0), m_look.palette().separator);
    }

private:
    const SettingsLook& m_look;
};

class SettingsKeyCap final : public QWidget {
public:
    SettingsKeyCap(const SettingsLook& look, const QString& key)
        : m_look(look)
        , m_key(key) {
        setFont(ui::roundedFont(KEY_POINTS, QFont::DemiBold));
        setAccessibleName(key);
        setFixedSize(std::max(KEY_SIDE, QFontMetrics(font()).horizontalAdvance(key)), KEY_SIDE);
        look.apply(this, [this](const ui::Palette&) { update(); });
    }

protected:
    void paintEvent(QPaintEvent*) override {
        const ui::Palette& palette = m_look.palette();
        paintPlate(*this, palette.tertiaryFill, palette.primaryAt(KEY_BORDER_OPACITY), KEY_RADIUS);
        QPainter painter(this);
        painter.setFont(font());
        painter.setPen(palette.primary);
        painter.drawText(rect(), Qt::AlignCenter, m_key);
    }

private:
    const SettingsLook& m_look;
    QString m_key;
};

} // namespace

QWidget* SettingsUI::header(const SettingsLook& look, const QString& title, const QString& icon) {
    auto* header = new QWidget;
    auto* line = new QHBoxLayout(header);
    line->setContentsMargins(0, 0, 0, HEADER_BOTTOM);
    line->setSpacing(HEADER_SPACING);
    auto* symbol = new ui::SymbolView(look.symbols(), icon, HEADER_SYMBOL_POINTS, QFont::DemiBold);
    auto* label = new ui::TextLabel(title, ui::textFont(HEADER_TITLE_POINTS, QFont::Bold));
    line->addWidget(symbol, 0, Qt::AlignVCenter);
    line->addWidget(label, 0, Qt::AlignVCenter);
    line->addStretch();
    look.apply(header, [symbol, label](const ui::Palette& palette) {
        symbol->setColor(palette.primary);
        label->setColor(palette.primary);
    });
    return header;
}

QWidget* SettingsUI::section(const SettingsLook& look, const QString& title, const SettingsContent& content) {
    auto* section = new QWidget;
    section->setAccessibleName(title);
    auto* column = new QVBoxLayout(section);
    column->setContentsMargins(0, 0, 0, SECTION_BOTTOM);
    column->setSpacing(0);
    if (!title.isEmpty()) {
        auto* label = new ui::TextLabel(title, ui::textFont(SECTION_TITLE_POINTS, QFont::Medium));
        look.apply(label, [label](const ui::Palette& palette) { label->setColor(palette.secondary); });
        auto* line = new QHBoxLayout;
        line->setContentsMargins(SECTION_TITLE_LEADING, 0, 0, SECTION_TITLE_BOTTOM);
        line->addWidget(label);
        column->addLayout(line);
    }
    auto* card = new Card(look);
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

QWidget* SettingsUI::keyCap(const SettingsLook& look, const QString& key) {
    return new SettingsKeyCap(look, key);
}

QWidget* settingsHeader(const SettingsLook& look, const QString& title, const QString& icon) {
    return SettingsUI::header(look, title, icon);
}

QWidget* settingsSection(const SettingsLook& look, const QString& title, const SettingsContent& content) {
    return SettingsUI::section(look, title, content);
}

QWidget* settingsRow(const SettingsContent& content) {
    return SettingsUI::row(content);
}

QWidget* keyCapView(const SettingsLook& look, const QString& key) {
    return SettingsUI::keyCap(look, key);
}

QWidget* settingsDivider(const SettingsLook& look) {
    return new Divider(look);
}

ui::TextLabel* settingsLabel(const SettingsLook& look, const QString& text) {
    auto* label = new ui::TextLabel(text, ui::textFont(BODY_POINTS));
    look.apply(label, [label](const ui::Palette& palette) { label->setColor(palette.primary); });
    return label;
}

ui::TextLabel* settingsCaption(const SettingsLook& look, const QString& text) {
    auto* label = new ui::TextLabel(text, ui::textFont(CAPTION_POINTS));
    look.apply(label, [label](const ui::Palette& palette) { label->setColor(palette.tertiary); });
    return label;
}

} // namespace zamber::settings
