// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "popover/UpdateBanner.h"

#include "popover/PopoverCommands.h"
#include "ui/BorderedButton.h"
#include "ui/PlainButton.h"
#include "ui/SymbolView.h"
#include "ui/TextLabel.h"
#include "ui/Typography.h"

#include <QHBoxLayout>
#include <QPainter>

namespace zamber::popover {

using namespace Qt::StringLiterals;

namespace {
constexpr int BANNER_PADDING_HORIZONTAL = 14;
constexpr int BANNER_PADDING_VERTICAL = 8;
constexpr int LINE = 16;
constexpr int BANNER_SPACING = 8;
constexpr double BANNER_GROUND_OPACITY = 0.08;
} // namespace

UpdateBanner::UpdateBanner(const Symbols& symbols, QWidget* parent)
    : QWidget(parent)
    , m_icon(new ui::SymbolView(symbols, u"arrow.down.circle.fill"_s, 10, QFont::Normal, this))
    , m_text(new ui::TextLabel({}, ui::textFont(11, QFont::Medium), this))
    , m_update(new ui::BorderedButton(
          u"Update"_s, {.prominence = ui::ButtonStyle::Prominence::Prominent, .size = ui::ControlSize::Mini}, this))
    , m_skip(
          new ui::PlainButton(symbols, {.symbol = u"xmark"_s, .symbolPoints = 8, .symbolWeight = QFont::Bold}, this)) {
    setFixedHeight(LINE + 2 * BANNER_PADDING_VERTICAL);
    m_text->setObjectName(u"updateText"_s);
    m_text->setMinimumWidth(1); // a long version must not push the buttons out
    m_update->setObjectName(u"updateButton"_s);
    m_update->setFocusPolicy(Qt::NoFocus); // the keyboard belongs to the search field
    m_update->setToolTip(withKeys(u"Update"_s, PopoverCommand::Update));
    m_skip->setObjectName(u"skipUpdateButton"_s);
    m_skip->setAccessibleName(u"Skip This Version"_s);
    m_skip->setToolTip(withKeys(u"Skip This Version"_s, PopoverCommand::SkipUpdate));

    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(BANNER_PADDING_HORIZONTAL, 0, BANNER_PADDING_HORIZONTAL - ui::PlainButton::GROUND_PADDING,
                            0);
    row->setSpacing(0);
    row->addWidget(m_icon);
    row->addSpacing(BANNER_SPACING);
    row->addWidget(m_text);
    row->addStretch();
    row->addSpacing(BANNER_SPACING);
    row->addWidget(m_update);
    row->addSpacing(BANNER_SPACING - ui::PlainButton::GROUND_PADDING);
    row->addWidget(m_skip);

    connect(m_update, &ui::BorderedButton::clicked, this, &UpdateBanner::download);
    connect(m_skip, &ui::PlainButton::clicked, this, &UpdateBanner::skip);
}

void UpdateBanner::setNotice(const UpdateNotice& notice) {
    m_notice = notice;
    m_text->setText(u"v%1 available"_s.arg(notice.latestVersion));
}

void UpdateBanner::download() {
    if (isVisible()) {
        std::function(m_notice.download)(); // a copy: what is called may set another notice, or take this one away
    }
}

void UpdateBanner::skip() {
    if (isVisible()) {
        std::function(m_notice.skip)();
    }
}

void UpdateBanner::setColors(const ui::Palette& palette) {
    m_palette = palette;
    m_icon->setColor(palette.blue);
    m_text->setColor(palette.primary);
    m_update->setColors(palette);
    m_skip->setColors(palette.secondary, palette);
    update();
}

void UpdateBanner::paintEvent(QPaintEvent*) {
    QPainter(this).fillRect(rect(), ui::faded(m_palette.blue, BANNER_GROUND_OPACITY));
}

} // namespace zamber::popover
