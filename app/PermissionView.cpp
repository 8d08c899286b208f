// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "app/PermissionView.h"

#include "platform/Appearance.h"
#include "ui/BorderedButton.h"
#include "ui/SymbolView.h"
#include "ui/TextLabel.h"
#include "ui/Typography.h"

#include <QGridLayout>
#include <QPainter>
#include <QRegularExpression>
#include <QVBoxLayout>

#include <array>

namespace zamber::app {

using namespace Qt::StringLiterals;

namespace {

constexpr int WIDTH = 380;
constexpr int PADDING = 24;
constexpr int SPACING = 16;
constexpr int STEP_SPACING = 8;
constexpr int STEP_POINTS = 13;
constexpr int SYMBOL_GAP = 7;

struct Step {
    QLatin1StringView symbol;
    QStringView markup;
};

constexpr std::array STEPS_IN_SETTINGS{
    Step{"1.circle.fill"_L1, u"Click the **+** button"},
    Step{"2.circle.fill"_L1, u"Add **Zamber** (or **Xcode**)"},
    Step{"3.circle.fill"_L1, u"Toggle it **on** ✅"},
};

/// The dialogs of desktops differ; these are the steps through all of them.
constexpr std::array STEPS_IN_DIALOG{
    Step{"1.circle.fill"_L1, u"Click **Grant Access**"},
    Step{"2.circle.fill"_L1, u"Allow **Zamber** to press keys"},
    Step{"3.circle.fill"_L1, u"Have the desktop **remember** it ✅"},
};

} // namespace

QString richTextOfMarkup(const QString& markup) {
    static const QRegularExpression bold(u"\\*\\*(.+?)\\*\\*"_s);
    return markup.toHtmlEscaped().replace(bold, u"<b>\\1</b>"_s);
}

PermissionView::PermissionView(const Appearance& appearance, const Symbols& symbols, GrantedBy grantedBy,
                               QWidget* parent)
    : QWidget(parent)
    , m_appearance(appearance)
    , m_symbols(symbols)
    , m_shield(new ui::SymbolView(symbols, u"lock.shield"_s, 40, QFont::Normal, this))
    , m_title(new ui::TextLabel(u"Zamber needs Accessibility"_s, ui::textFont(16, QFont::Bold), this))
    , m_button(grantedBy == GrantedBy::Dialog ? createButton() : nullptr)
    , m_hint(new ui::TextLabel(u"This window closes automatically once granted."_s, ui::textFont(11), this)) {
    setFixedWidth(WIDTH);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(PADDING, PADDING, PADDING, PADDING);
    column->setSpacing(SPACING);
    column->addWidget(m_shield, 0, Qt::AlignHCenter);
    column->addWidget(m_title, 0, Qt::AlignHCenter);
    column->addWidget(createSteps(grantedBy), 0, Qt::AlignHCenter);
    if (m_button != nullptr) {
        column->addWidget(m_button, 0, Qt::AlignHCenter);
    }
    column->addWidget(m_hint, 0, Qt::AlignHCenter);
    updateAppearance();
}

ui::BorderedButton* PermissionView::createButton() {
    auto* button = new ui::BorderedButton(
        u"Grant Access"_s, {.prominence = ui::ButtonStyle::Prominence::Prominent, .size = ui::ControlSize::Small},
        this);
    connect(button, &ui::BorderedButton::clicked, this, &PermissionView::dialogRequested);
    return button;
}

QWidget* PermissionView::createSteps(GrantedBy grantedBy) {
    auto* steps = new QWidget(this);
    auto* grid = new QGridLayout(steps);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(SYMBOL_GAP);
    grid->setVerticalSpacing(STEP_SPACING);
    for (const Step& step : grantedBy == GrantedBy::Dialog ? STEPS_IN_DIALOG : STEPS_IN_SETTINGS) {
        auto* number = new ui::SymbolView(m_symbols, step.symbol, STEP_POINTS, QFont::Normal, steps);
        auto* text = new QLabel(richTextOfMarkup(step.markup.toString()), steps);
        text->setTextFormat(Qt::RichText);
        text->setFont(ui::textFont(STEP_POINTS));
        text->setAccessibleName(step.markup.toString().remove(u"**"_s));
        const int row = grid->rowCount();
        grid->addWidget(number, row, 0, Qt::AlignVCenter);
        grid->addWidget(text, row, 1, Qt::AlignLeft | Qt::AlignVCenter);
        m_stepNumbers << number;
        m_stepTexts << text;
    }
    return steps;
}

void PermissionView::updateAppearance() {
    m_palette = ui::Palette::of(m_appearance);
    m_shield->setColor(m_palette.blue);
    m_title->setColor(m_palette.primary);
    m_hint->setColor(m_palette.tertiary);
    if (m_button != nullptr) {
        m_button->setColors(m_palette);
    }
    for (ui::SymbolView* const number : m_stepNumbers) {
        number->setColor(m_palette.secondary);
    }
    for (QLabel* const text : m_stepTexts) {
        QPalette colors = text->palette();
        colors.setColor(QPalette::WindowText, m_palette.secondary);
        text->setPalette(colors);
    }
    update();
}

void PermissionView::paintEvent(QPaintEvent*) {
    QPainter(this).fillRect(rect(), m_palette.ultraThinMaterial);
}

} // namespace zamber::app
