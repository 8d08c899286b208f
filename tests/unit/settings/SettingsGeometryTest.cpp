// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "SettingsStage.h"

#include "tests/fakes/FakeSymbols.h"
#include "ui/BorderedButton.h"
#include "ui/SegmentedPicker.h"
#include "ui/Switch.h"
#include "ui/SymbolView.h"
#include "ui/TextLabel.h"

#include <QApplication>

#include <gtest/gtest.h>

#include <algorithm>

namespace zamber::settings {

using namespace Qt::StringLiterals;

namespace {

/// What a text has to look like.
struct TextRow {
    SettingsTab tab;
    QString text;
    int points;
    QFont::Weight weight;
    QColor ui::Palette::* level;
};

const QList<TextRow> TEXTS{
    {SettingsTab::General, u"General"_s, 20, QFont::Bold, &ui::Palette::primary},
    {SettingsTab::General, u"Startup"_s, 12, QFont::Medium, &ui::Palette::secondary},
    {SettingsTab::General, u"Appearance"_s, 12, QFont::Medium, &ui::Palette::secondary},
    {SettingsTab::General, u"Theme"_s, 13, QFont::Normal, &ui::Palette::primary},
    {SettingsTab::General, u"Popover size"_s, 13, QFont::Normal, &ui::Palette::primary},
    {SettingsTab::General, u"Feedback"_s, 12, QFont::Medium, &ui::Palette::secondary},
    {SettingsTab::General, u"v2.3.4 (56)"_s, 13, QFont::Normal, &ui::Palette::secondary},
    {SettingsTab::General, u"Up to date"_s, 13, QFont::Normal, &ui::Palette::green},
    {SettingsTab::General, u"Permissions"_s, 12, QFont::Medium, &ui::Palette::secondary},
    {SettingsTab::General, u"Granted"_s, 13, QFont::Medium, &ui::Palette::green},
    {SettingsTab::Clipboard, u"Clipboard"_s, 20, QFont::Bold, &ui::Palette::primary},
    {SettingsTab::Clipboard, u"History"_s, 12, QFont::Medium, &ui::Palette::secondary},
    {SettingsTab::Clipboard, u"Display"_s, 12, QFont::Medium, &ui::Palette::secondary},
    {SettingsTab::Clipboard, u"Security"_s, 12, QFont::Medium, &ui::Palette::secondary},
    {SettingsTab::Clipboard, u"Show page titles for copied links"_s, 11, QFont::Normal, &ui::Palette::tertiary},
    {SettingsTab::Shortcuts, u"Shortcuts"_s, 20, QFont::Bold, &ui::Palette::primary},
    {SettingsTab::Shortcuts, u"Open Zamber"_s, 13, QFont::Normal, &ui::Palette::primary},
    {SettingsTab::Shortcuts, u"Press Esc to close the popover"_s, 12, QFont::Normal, &ui::Palette::secondary},
    {SettingsTab::About, u"Zamber"_s, 24, QFont::Bold, &ui::Palette::primary},
    {SettingsTab::About, u"Version 2.3.4"_s, 13, QFont::Normal, &ui::Palette::secondary},
    {SettingsTab::About, u"A minimal clipboard manager for macOS"_s, 13, QFont::Normal, &ui::Palette::tertiary},
    {SettingsTab::About, u"Made with care by the Zamber project"_s, 12, QFont::Normal, &ui::Palette::tertiary},
    {SettingsTab::About, u"Free software under the MIT licence"_s, 11, QFont::Normal, &ui::Palette::quaternary},
};

struct SymbolRow {
    SettingsTab tab;
    QString name;
    double points;
    QFont::Weight weight;
};

const QList<SymbolRow> SYMBOLS{
    {SettingsTab::General, u"gearshape.fill"_s, 18, QFont::DemiBold},
    {SettingsTab::General, u"checkmark.circle.fill"_s, 13, QFont::Medium},
    {SettingsTab::Clipboard, u"clipboard.fill"_s, 18, QFont::DemiBold},
    {SettingsTab::Shortcuts, u"keyboard.fill"_s, 18, QFont::DemiBold},
    {SettingsTab::Shortcuts, u"arrow.up.arrow.down"_s, 12, QFont::Normal},
    {SettingsTab::Shortcuts, u"return"_s, 12, QFont::Normal},
    {SettingsTab::Shortcuts, u"escape"_s, 12, QFont::Normal},
    {SettingsTab::Shortcuts, u"magnifyingglass"_s, 12, QFont::Normal},
    {SettingsTab::About, u"clipboard.fill"_s, 56, QFont::Normal},
};

class SettingsGeometryTest : public testing::Test {
public:
    void SetUp() override { stage.open(); }

    void select(SettingsTab tab) {
        stage.select(tab);
        QApplication::processEvents();
    }

    /// Where the widget stands on the page's content.
    QRect place(const QWidget* widget) const {
        return {widget->mapTo(stage.view.get(), QPoint()) - stage.view->page()->pos(), widget->size()};
    }

    const ui::TextLabel* label(const QString& text) const {
        for (const ui::TextLabel* const found : stage.view->page()->findChildren<ui::TextLabel*>()) {
            if (found->text() == text && found->isVisible()) {
                return found;
            }
        }
        return nullptr;
    }

    FakeSymbols symbols;
    SettingsStage stage{symbols};
};

} // namespace

TEST_F(SettingsGeometryTest, EveryTextHasItsSizeWeightAndLevel) {
    for (const auto& [tab, text, points, weight, level] : TEXTS) {
        select(tab);
        const ui::TextLabel* const shown = label(text);
        ASSERT_NE(shown, nullptr) << text.toStdString();
        EXPECT_EQ(shown->font().pixelSize(), points) << text.toStdString();
        EXPECT_EQ(shown->font().weight(), weight) << text.toStdString();
        EXPECT_EQ(shown->palette().color(QPalette::WindowText), stage.theme->palette().*level) << text.toStdString();
    }
}

TEST_F(SettingsGeometryTest, EverySymbolHasItsSizeAndWeight) {
    for (const auto& [tab, name, points, weight] : SYMBOLS) {
        symbols.requests.clear();
        stage.select(tab == SettingsTab::About ? SettingsTab::General : SettingsTab::About);
        select(tab);
        stage.view->grab();
        const bool isDrawn = std::ranges::any_of(symbols.requests, [&](const FakeSymbols::Request& request) {
            return request.name == name && request.style.pointSize == points && request.style.weight == weight;
        });
        EXPECT_TRUE(isDrawn) << name.toStdString() << " at " << points;
    }
}

TEST_F(SettingsGeometryTest, PagesArePaddedBy20AndTheirSectionsStand16Apart) {
    select(SettingsTab::Clipboard);
    const QRect page(QPoint(), stage.view->page()->size());
    EXPECT_EQ(page.width(), 450);
    const QRect title = place(label(u"Clipboard"_s));
    const QRect history = place(label(u"History"_s));
    EXPECT_EQ(history.left(), 20 + 4);
    EXPECT_EQ(history.right() + 1, page.width() - 20);
    EXPECT_EQ(history.top() - (title.bottom() + 1), 20) << "the header's padding";
    const QWidget* const picker = stage.control<ui::SegmentedPicker>(u"Max items"_s);
    const QRect card = place(picker->parentWidget()->parentWidget());
    EXPECT_EQ(card.left(), 20);
    EXPECT_EQ(card.width(), 410);
    EXPECT_EQ(card.top(), history.bottom() + 1 + 6);
    EXPECT_EQ(card.height(), picker->height() + 2 * 12);
    EXPECT_EQ(place(label(u"Display"_s)).top() - (card.bottom() + 1), 16);
}

TEST_F(SettingsGeometryTest, RowsArePaddedBy16And12) {
    select(SettingsTab::Clipboard);
    const auto* const picker = stage.control<ui::SegmentedPicker>(u"Max items"_s);
    const QRect card = place(picker->parentWidget()->parentWidget());
    EXPECT_EQ(place(label(u"Max items"_s)).left(), card.left() + 16);
    EXPECT_EQ(place(picker).right() + 1, card.right() + 1 - 16);
    EXPECT_EQ(place(picker).top(), card.top() + 12);
    const auto* const lines = stage.control<ui::Switch>(u"Show line count"_s);
    const auto* const characters = stage.control<ui::Switch>(u"Show character count"_s);
    EXPECT_EQ(place(characters).top() - (place(lines).bottom() + 1), 12 + 1 + 12) << "paddings and a divider";
}

TEST_F(SettingsGeometryTest, PickersHaveTheirWidths) {
    select(SettingsTab::General);
    EXPECT_EQ(stage.control<ui::SegmentedPicker>(u"Theme"_s)->width(), 200);
    EXPECT_EQ(stage.control<ui::SegmentedPicker>(u"Popover size"_s)->width(), 220);
    select(SettingsTab::Clipboard);
    EXPECT_EQ(stage.control<ui::SegmentedPicker>(u"Max items"_s)->width(), 200);
}

TEST_F(SettingsGeometryTest, CaptionsStand4UnderTheirSwitches) {
    select(SettingsTab::Clipboard);
    const QRect above = place(stage.control<ui::Switch>(u"Preview URL titles"_s));
    const QRect caption = place(label(u"Show page titles for copied links"_s));
    EXPECT_EQ(caption.top() - (above.bottom() + 1), 4);
    EXPECT_EQ(caption.left(), above.left());
}

TEST_F(SettingsGeometryTest, TipsArePaddedBy16AndTheirTextsLineUp) {
    select(SettingsTab::Shortcuts);
    const QRect title = place(label(u"Tips"_s));
    const QStringList tips{u"Use ↑↓ arrows to navigate items"_s, u"Press Return to paste selected item"_s,
                           u"Press Esc to close the popover"_s, u"Start typing to search instantly"_s};
    for (qsizetype i = 0; i < tips.size(); ++i) {
        const QRect tip = place(label(tips[i]));
        EXPECT_EQ(tip.left(), 20 + 16 + 20 + 10) << "the symbol's frame and the spacing";
        if (i > 0) {
            EXPECT_EQ(tip.top() - (place(label(tips[i - 1])).bottom() + 1), 8);
        } else {
            EXPECT_EQ(tip.top(), title.bottom() + 1 + 6 + 16);
        }
    }
}

TEST_F(SettingsGeometryTest, SmallButtonsAreSmallAndOnlyTheOnesMeantToBePressedAreProminent) {
    stage.trust.isGranted = false;
    select(SettingsTab::About);
    select(SettingsTab::General);
    using enum ui::ButtonStyle::Prominence;
    for (const auto& [name, prominence] : {std::pair(u"Check"_s, Bordered), std::pair(u"Download"_s, Prominent),
                                           std::pair(u"Grant Access"_s, Prominent)}) {
        const auto* const button = stage.control<ui::BorderedButton>(name);
        EXPECT_EQ(button->buttonStyle().size, ui::ControlSize::Small) << name.toStdString();
        EXPECT_EQ(button->buttonStyle().prominence, prominence) << name.toStdString();
    }
}

TEST_F(SettingsGeometryTest, NothingIsClipped) {
    for (const SettingsTab tab : ALL_SETTINGS_TABS) {
        select(tab);
        for (const ui::TextLabel* const text : stage.view->page()->findChildren<ui::TextLabel*>()) {
            if (text->isVisible()) {
                const QFontMetrics needed(text->font());
                const QRect room = text->contentsRect();
                EXPECT_GE(room.width(), needed.horizontalAdvance(text->text())) << text->text().toStdString();
                EXPECT_GE(room.height(), needed.height()) << text->text().toStdString();
            }
        }
    }
}

} // namespace zamber::settings
