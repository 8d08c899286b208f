// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "popover/PopoverBars.h"

#include "platform/Symbols.h"
#include "popover/PopoverCommands.h"
#include "ui/Badge.h"
#include "ui/PlainButton.h"
#include "ui/SymbolView.h"
#include "ui/TextLabel.h"
#include "ui/Typography.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QVBoxLayout>

namespace zamber::popover {

using namespace Qt::StringLiterals;

namespace {

constexpr int BAR_PADDING_HORIZONTAL = 16;
constexpr double BAR_OPACITY_ON_MATERIAL = 0.5; ///< so that a material behind the bar is seen through it
constexpr int TOP_BAR_PADDING_TOP = 14;
constexpr int TOP_BAR_PADDING_BOTTOM = 10;
constexpr int TOP_BAR_LINE = 20;
constexpr int TOP_BAR_SPACING = 8;
constexpr int FOOTER_PADDING_VERTICAL = 10;
constexpr int FOOTER_LINE = 16;
constexpr int FOOTER_SPACING = 14;
constexpr int HINT_SPACING = 4;
constexpr int EMPTY_STATE_SPACING = 12;

} // namespace

PopoverHeader::PopoverHeader(const Symbols& symbols, SettingsButton settingsButton, QWidget* parent)
    : QWidget(parent)
    , m_icon(new ui::SymbolView(symbols, u"clipboard.fill"_s, 14, QFont::DemiBold, this))
    , m_title(new ui::TextLabel(u"Zamber"_s, ui::textFont(15, QFont::Bold), this))
    , m_badge(new ui::CapsuleBadge(this)) {
    m_badge->setObjectName(u"countBadge"_s);
    m_badge->hide();
    setFixedHeight(TOP_BAR_PADDING_TOP + TOP_BAR_LINE + TOP_BAR_PADDING_BOTTOM);

    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(BAR_PADDING_HORIZONTAL, TOP_BAR_PADDING_TOP, BAR_PADDING_HORIZONTAL,
                            TOP_BAR_PADDING_BOTTOM);
    row->setSpacing(0);
    row->addWidget(m_icon);
    row->addSpacing(TOP_BAR_SPACING);
    row->addWidget(m_title);
    row->addStretch();
    row->addWidget(m_badge);
    if (settingsButton == SettingsButton::Shown) {
        m_settings = new ui::PlainButton(symbols, {.symbol = u"gearshape.fill"_s, .symbolPoints = 13}, this);
        m_settings->setObjectName(u"settingsButton"_s);
        m_settings->setAccessibleName(u"Settings"_s);
        m_settings->setToolTip(withKeys(u"Settings"_s, PopoverCommand::OpenSettings));
        // The gear itself stands at the margin; the ground that it shows when hovered reaches into it.
        row->setContentsMargins(BAR_PADDING_HORIZONTAL, TOP_BAR_PADDING_TOP,
                                BAR_PADDING_HORIZONTAL - ui::PlainButton::GROUND_PADDING, TOP_BAR_PADDING_BOTTOM);
        row->addSpacing(TOP_BAR_SPACING - ui::PlainButton::GROUND_PADDING);
        row->addWidget(m_settings);
        connect(m_settings, &ui::PlainButton::clicked, this, &PopoverHeader::settingsRequested);
    }
}

void PopoverHeader::setCount(qsizetype count, int max) {
    m_badge->setText(u"%1/%2"_s.arg(count).arg(max));
    m_badge->setVisible(count > 0);
}

void PopoverHeader::setColors(const ui::Palette& palette) {
    m_icon->setColor(palette.accent);
    m_title->setColor(palette.primary);
    m_badge->setColors(palette.secondary, palette.tertiaryFill);
    if (m_settings != nullptr) {
        m_settings->setColors(palette.tertiary, palette);
    }
}

PopoverFooter::PopoverFooter(const Symbols& symbols, QWidget* parent)
    : QWidget(parent)
    , m_clear(new ui::PlainButton(symbols,
                                  {.symbol = u"trash"_s,
                                   .symbolPoints = 10,
                                   .text = u"Clear"_s,
                                   .font = ui::textFont(11, QFont::Medium),
                                   .pointer = ui::HoverPointer::PointingHand},
                                  this)) {
    setFixedHeight(FOOTER_LINE + 2 * FOOTER_PADDING_VERTICAL);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(BAR_PADDING_HORIZONTAL, 0, BAR_PADDING_HORIZONTAL - ui::PlainButton::GROUND_PADDING, 0);
    row->setSpacing(HINT_SPACING);

    const std::pair<QString, QString> hints[] = {
        {u"↑↓"_s, u"navigate"_s}, {u"↩"_s, u"paste"_s}, {u"esc"_s, u"close"_s}};
    for (const auto& [key, label] : hints) {
        if (!m_keys.isEmpty()) {
            row->addSpacing(FOOTER_SPACING - HINT_SPACING);
        }
        m_keys.append(new ui::KeyCap(key, this));
        m_labels.append(new ui::TextLabel(label, ui::textFont(10), this));
        row->addWidget(m_keys.last());
        row->addWidget(m_labels.last());
    }
    row->addStretch();

    m_clear->setObjectName(u"clearButton"_s);
    m_clear->setAccessibleName(u"Clear"_s);
    m_clear->setToolTip(withKeys(u"Clear"_s, PopoverCommand::Clear));
    m_clear->hide();
    row->addWidget(m_clear);
    connect(m_clear, &ui::PlainButton::clicked, this, &PopoverFooter::clearRequested);
}

void PopoverFooter::setClearShown(bool isShown) {
    m_clear->setVisible(isShown);
}

void PopoverFooter::setColors(const ui::Palette& palette) {
    m_palette = palette;
    for (ui::KeyCap* key : std::as_const(m_keys)) {
        key->setColors(palette.tertiary, palette.tertiaryFill);
    }
    for (ui::TextLabel* label : std::as_const(m_labels)) {
        label->setColor(palette.quaternary);
    }
    m_clear->setColors(palette.secondary, palette);
    update();
}

void PopoverFooter::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const bool isOnMaterial = parentWidget() != nullptr && parentWidget()->testAttribute(Qt::WA_TranslucentBackground);
    painter.fillRect(rect(),
                     isOnMaterial ? ui::faded(m_palette.barMaterial, BAR_OPACITY_ON_MATERIAL) : m_palette.barMaterial);
    painter.fillRect(QRectF(0, 0, width(), 1), ui::faded(m_palette.separator, 0.6));
}

EmptyState::EmptyState(const Symbols& symbols, const QString& commandKeyHint, QWidget* parent)
    : QWidget(parent)
    , m_icon(new ui::SymbolView(symbols, u"clipboard"_s, 32, QFont::Light, this))
    , m_title(new ui::TextLabel({}, ui::textFont(13, QFont::Medium), this))
    , m_hint(new ui::TextLabel(u"⌘⇧V to open anytime"_s, ui::textFont(11), this)) {
    m_icon->setObjectName(u"emptyStateIcon"_s);
    m_title->setObjectName(u"emptyStateTitle"_s);
    m_hint->setObjectName(u"emptyStateHint"_s);
    m_hint->setToolTip(commandKeyHint);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(EMPTY_STATE_SPACING);
    column->addStretch();
    column->addWidget(m_icon, 0, Qt::AlignHCenter);
    column->addWidget(m_title, 0, Qt::AlignHCenter);
    column->addWidget(m_hint, 0, Qt::AlignHCenter);
    column->addStretch();
    setReason(Reason::EmptyHistory);
}

void EmptyState::setReason(Reason reason) {
    const bool isEmpty = reason == Reason::EmptyHistory;
    m_icon->setSymbol(isEmpty ? u"clipboard"_s : u"magnifyingglass"_s);
    m_title->setText(isEmpty ? u"Copy something to get started"_s : u"No matches found"_s);
    m_hint->setVisible(isEmpty);
}

void EmptyState::setColors(const ui::Palette& palette) {
    m_icon->setColor(palette.quaternary);
    m_title->setColor(palette.tertiary);
    m_hint->setColor(palette.quaternary);
}

} // namespace zamber::popover
