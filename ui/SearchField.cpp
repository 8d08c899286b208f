// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "ui/SearchField.h"

#include "platform/Symbols.h"
#include "ui/EmojiLineEdit.h"
#include "ui/PlainButton.h"
#include "ui/Typography.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QPalette>

#include <cmath>

namespace zamber::ui {

using namespace Qt::StringLiterals;

namespace {
constexpr int PADDING_HORIZONTAL = 10;
constexpr int FIELD_HEIGHT = 32; // a line of 13 points between paddings of 8
constexpr int GLASS_ROOM = 14;
constexpr int SPACING = 8;
constexpr double FIELD_RADIUS = 8;
constexpr QChar THIN_SPACE(0x2009);
} // namespace

SearchField::SearchField(const Symbols& symbols, const QString& placeholder, QWidget* parent)
    : QWidget(parent)
    , m_symbols(symbols)
    , m_field(new EmojiLineEdit(this))
    , m_clearButton(new PlainButton(symbols, {.symbol = u"xmark.circle.fill"_s, .symbolPoints = 12}, this)) {
    m_field->setObjectName(u"searchField"_s);
    m_field->setAccessibleName(placeholder);
    // The caret stands where a text begins: a little room keeps it off the placeholder's first letter.
    m_field->setPlaceholderText(THIN_SPACE + placeholder);
    m_field->setFrame(false);
    m_field->setFont(textFont(13));
    m_field->setTextMargins(0, 0, 0, 0);
    setFocusProxy(m_field);
    setFixedHeight(FIELD_HEIGHT);

    m_clearButton->setObjectName(u"clearSearchButton"_s);
    m_clearButton->setAccessibleName(u"Clear search"_s);
    m_clearButton->hide();

    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(PADDING_HORIZONTAL + GLASS_ROOM + SPACING - 2, 0,
                            PADDING_HORIZONTAL - PlainButton::GROUND_PADDING, 0);
    row->setSpacing(0);
    row->addWidget(m_field);
    row->addWidget(m_clearButton);

    connect(m_field, &EmojiLineEdit::textChanged, this, [this](const QString& text) {
        m_clearButton->setVisible(!text.isEmpty());
        emit textChanged(text);
    });
    connect(m_clearButton, &PlainButton::clicked, m_field, &EmojiLineEdit::clear);
}

QString SearchField::text() const {
    return m_field->text();
}

void SearchField::setText(const QString& text) {
    if (m_field->text() != text) {
        m_field->setText(text);
    }
}

void SearchField::selectAll() {
    m_field->selectAll();
}

void SearchField::setColors(const Palette& palette) {
    m_palette = palette;
    QPalette colors = palette.forWidgets();
    colors.setColor(QPalette::Base, Qt::transparent);
    m_field->setPalette(colors);
    m_clearButton->setColors(palette.tertiary, palette);
    update();
}

void SearchField::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(composed(m_palette.quinaryFill, m_palette.ultraThinMaterial));
    painter.drawRoundedRect(rect(), FIELD_RADIUS, FIELD_RADIUS);

    const QPixmap glass =
        m_symbols.pixmap(u"magnifyingglass"_s, {12, QFont::Medium, m_palette.tertiary, devicePixelRatioF()});
    painter.drawPixmap(QPointF(PADDING_HORIZONTAL, std::round((height() - glass.deviceIndependentSize().height()) / 2)),
                       glass);
}

} // namespace zamber::ui
