// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "SettingsStage.h"
#include "preferences/PreferenceKeys.h"

#include "tests/fakes/FakeDesktopShortcut.h"
#include "tests/fakes/FakeSymbols.h"
#include "tests/support/LogCapture.h"
#include "ui/BorderedButton.h"
#include "ui/ProgressIndicator.h"
#include "ui/SegmentedPicker.h"
#include "ui/Switch.h"
#include "ui/TextLabel.h"

#include <QApplication>
#include <QRadioButton>
#include <QTest>

#include <gtest/gtest.h>

#include <vector>

namespace zamber::settings {

using namespace Qt::StringLiterals;

namespace {

constexpr auto AVAILABLE =
    R"({"updateAvailable": true, "latestVersion": "3.0.0", "downloadUrl": "https://example.org"})";

class SettingsPagesTest : public testing::Test {
public:
    void open(SettingsTab tab) {
        stage.open();
        stage.select(tab);
        QApplication::processEvents();
    }

    ui::Switch& switchNamed(const QString& name) const { return *stage.control<ui::Switch>(name); }
    ui::SegmentedPicker& picker(const QString& name) const { return *stage.control<ui::SegmentedPicker>(name); }

    void press(const QString& pickerName, const QString& segment) const {
        for (QRadioButton* const button : picker(pickerName).findChildren<QRadioButton*>()) {
            if (button->text() == segment) {
                QTest::mouseClick(button, Qt::LeftButton);
            }
        }
    }

    /// The texts of the page that can be seen, top to bottom.
    QStringList shownTexts() const {
        QStringList texts;
        for (const ui::TextLabel* const label : stage.view->page()->findChildren<ui::TextLabel*>()) {
            if (label->isVisible()) {
                texts << label->text();
            }
        }
        return texts;
    }

    bool shows(const QString& text) const { return shownTexts().contains(text); }

    template <class Control>
    bool showsControl(const QString& name) const {
        const auto* const control = stage.control<Control>(name);
        return control != nullptr && control->isVisible();
    }

    FakeSymbols symbols;
    FakeDesktopShortcut shortcut;
    SettingsStage stage{symbols};
};

} // namespace

TEST_F(SettingsPagesTest, TabGoesThroughEveryPageAsOneReadsIt) {
    stage.trust.isGranted = false;
    stage.desktopShortcut = &shortcut;
    for (const SettingsTab tab : {SettingsTab::General, SettingsTab::Clipboard, SettingsTab::Shortcuts}) {
        open(tab);
        ASSERT_TRUE(QTest::qWaitForWindowActive(stage.view.get()));
        const auto* const page = stage.view->page();
        std::vector<QPoint> stops;
        auto* const first = stage.view->findChild<SettingsSidebar*>();
        first->setFocus();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        while (page->isAncestorOf(QApplication::focusWidget())) {
            const QWidget* const control = QApplication::focusWidget();
            stops.push_back(control->mapTo(page, control->rect().center()));
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        }
        EXPECT_EQ(QApplication::focusWidget(), first) << "and back to where it began";
        EXPECT_GE(stops.size(), 2U) << static_cast<int>(tab);
        for (std::size_t i = 1; i < stops.size(); ++i) {
            EXPECT_GT(stops[i].y(), stops[i - 1].y()) << static_cast<int>(tab) << ", stop " << i;
        }
    }
}

// General

TEST_F(SettingsPagesTest, TheLoginSwitchIsOnWhenTheProgramIsRegisteredAndOffForEveryOtherStatus) {
    using enum LoginItemStatus;
    for (const LoginItemStatus status : {Enabled, NotRegistered, RequiresApproval, NotFound}) {
        stage.loginItem.current = status;
        open(SettingsTab::General);
        EXPECT_EQ(switchNamed(u"Launch at login"_s).isChecked(), status == Enabled);
    }
    EXPECT_EQ(stage.loginItem.changesAsked, 0);
}

TEST_F(SettingsPagesTest, TogglingTheLoginSwitchOnAndOffIssuesOneRegisterAndOneUnregister) {
    open(SettingsTab::General);
    QTest::mouseClick(&switchNamed(u"Launch at login"_s), Qt::LeftButton);
    EXPECT_EQ(stage.loginItem.current, LoginItemStatus::Enabled);
    EXPECT_EQ(stage.loginItem.changesAsked, 1);
    QTest::mouseClick(&switchNamed(u"Launch at login"_s), Qt::LeftButton);
    EXPECT_EQ(stage.loginItem.current, LoginItemStatus::NotRegistered);
    EXPECT_EQ(stage.loginItem.changesAsked, 2);
}

TEST_F(SettingsPagesTest, ALoginItemThatFailsIsLoggedAndTheSwitchStaysWhereItWasPut) {
    stage.loginItem.failure = u"the folder is read-only"_s;
    open(SettingsTab::General);
    LogCapture log;
    QTest::mouseClick(&switchNamed(u"Launch at login"_s), Qt::LeftButton);
    EXPECT_EQ(log.take(), "❌ Launch at login: the folder is read-only\n");
    EXPECT_TRUE(switchNamed(u"Launch at login"_s).isChecked());
}

TEST_F(SettingsPagesTest, ThemeSizeAndSoundAreWrittenAtOnce) {
    open(SettingsTab::General);
    EXPECT_EQ(picker(u"Theme"_s).value(), u"auto"_s);
    EXPECT_EQ(picker(u"Popover size"_s).value(), u"normal"_s);
    EXPECT_FALSE(switchNamed(u"Play sound on paste"_s).isChecked());
    press(u"Theme"_s, u"Dark"_s);
    press(u"Popover size"_s, u"Compact"_s);
    QTest::mouseClick(&switchNamed(u"Play sound on paste"_s), Qt::LeftButton);
    EXPECT_EQ(stage.defaults.string(u"appTheme"_s), u"dark"_s);
    EXPECT_EQ(stage.defaults.string(u"popoverSize"_s), u"compact"_s);
    EXPECT_EQ(stage.defaults.boolean(u"playSoundOnPaste"_s), true);
    EXPECT_EQ(stage.defaults.values.size(), 3);
}

TEST_F(SettingsPagesTest, WhatIsWrittenElsewhereAppearsAtOnce) {
    open(SettingsTab::General);
    stage.defaults.setString(u"appTheme"_s, u"light"_s);
    EXPECT_EQ(picker(u"Theme"_s).value(), u"light"_s);
    stage.defaults.setBoolean(u"playSoundOnPaste"_s, true);
    EXPECT_TRUE(switchNamed(u"Play sound on paste"_s).isChecked());
    stage.defaults.setString(u"appTheme"_s, u"sepia"_s);
    EXPECT_EQ(picker(u"Theme"_s).value(), std::nullopt) << "no segment stands out";
    EXPECT_EQ(stage.defaults.string(u"appTheme"_s), u"sepia"_s);
    press(u"Theme"_s, u"Auto"_s);
    EXPECT_EQ(stage.defaults.string(u"appTheme"_s), u"auto"_s);
}

TEST_F(SettingsPagesTest, Version100AndBuild42ReadV100And42) {
    stage.bundle.versionText = u"1.0.0"_s;
    stage.bundle.buildText = u"42"_s;
    open(SettingsTab::General);
    EXPECT_TRUE(shows(u"v1.0.0 (42)"_s));
}

TEST_F(SettingsPagesTest, WhileACheckIsRunningTheRowShowsOnlyTheProgressIndicator) {
    stage.web.answer = QByteArray(AVAILABLE);
    open(SettingsTab::General);
    EXPECT_TRUE(shows(u"Up to date"_s));
    EXPECT_FALSE(showsControl<ui::ProgressIndicator>(u"Checking for updates"_s));
    QTest::mouseClick(stage.control<ui::BorderedButton>(u"Check"_s), Qt::LeftButton);
    EXPECT_TRUE(showsControl<ui::ProgressIndicator>(u"Checking for updates"_s));
    EXPECT_FALSE(shows(u"Up to date"_s));
    EXPECT_FALSE(showsControl<ui::BorderedButton>(u"Check"_s));
    EXPECT_TRUE(QTest::qWaitFor([this] { return !stage.updates->isChecking(); }));
    EXPECT_TRUE(shows(u"v3.0.0 available"_s));
    EXPECT_TRUE(showsControl<ui::BorderedButton>(u"Download"_s));
    EXPECT_FALSE(showsControl<ui::BorderedButton>(u"Check"_s));

    // And once more, with an update known from the first.
    stage.web.answer.reset();
    stage.updates->checkForUpdates();
    EXPECT_TRUE(showsControl<ui::ProgressIndicator>(u"Checking for updates"_s));
    EXPECT_FALSE(shows(u"v3.0.0 available"_s));
    EXPECT_FALSE(showsControl<ui::BorderedButton>(u"Download"_s));
}

TEST_F(SettingsPagesTest, DownloadOpensTheAddress) {
    stage.web.answer = QByteArray(AVAILABLE);
    stage.updates->checkForUpdates();
    EXPECT_TRUE(QTest::qWaitFor([this] { return stage.updates->updateAvailable(); }));
    open(SettingsTab::General);
    QTest::mouseClick(stage.control<ui::BorderedButton>(u"Download"_s), Qt::LeftButton);
    EXPECT_EQ(stage.journal.entries(), std::vector<std::string>{"open https://example.org"});
}

TEST_F(SettingsPagesTest, TheCheckButtonPressedTwiceSendsOneRequest) {
    open(SettingsTab::General);
    auto* const check = stage.control<ui::BorderedButton>(u"Check"_s);
    check->click();
    check->click();
    EXPECT_EQ(stage.web.addresses.size(), 1U);
}

TEST_F(SettingsPagesTest, ThePermissionIsReadEachTimeThePageIsBuilt) {
    stage.trust.isGranted = false;
    open(SettingsTab::General);
    EXPECT_TRUE(showsControl<ui::BorderedButton>(u"Grant Access"_s));
    EXPECT_FALSE(shows(u"Granted"_s));
    stage.trust.isGranted = true;
    stage.select(SettingsTab::About);
    stage.select(SettingsTab::General);
    EXPECT_FALSE(showsControl<ui::BorderedButton>(u"Grant Access"_s));
    EXPECT_TRUE(shows(u"Granted"_s));
}

TEST_F(SettingsPagesTest, GrantAccessOpensThePageWhereItIsGrantedAndNothingWhereThereIsNone) {
    stage.trust.isGranted = false;
    open(SettingsTab::General);
    stage.control<ui::BorderedButton>(u"Grant Access"_s)->click();
    EXPECT_EQ(stage.journal.entries(), std::vector<std::string>{"open settings:accessibility"});
    stage.journal.clear();
    stage.trust.address.reset();
    stage.control<ui::BorderedButton>(u"Grant Access"_s)->click();
    EXPECT_TRUE(stage.journal.entries().empty());
}

// Clipboard

TEST_F(SettingsPagesTest, WithNothingStoredThePageShowsTheFallbacks) {
    open(SettingsTab::Clipboard);
    EXPECT_EQ(picker(u"Max items"_s).value(), u"20"_s);
    EXPECT_TRUE(switchNamed(u"Show line count"_s).isChecked());
    EXPECT_TRUE(switchNamed(u"Show character count"_s).isChecked());
    EXPECT_TRUE(switchNamed(u"Preview URL titles"_s).isChecked());
    EXPECT_FALSE(switchNamed(u"Hide sensitive content"_s).isChecked());
}

TEST_F(SettingsPagesTest, AMaximumThatIsNoneOfTheChoicesIsLeftAloneUntilASegmentIsPicked) {
    stage.defaults.setInteger(u"maxItems"_s, 7);
    open(SettingsTab::Clipboard);
    EXPECT_EQ(picker(u"Max items"_s).value(), std::nullopt);
    EXPECT_EQ(stage.defaults.integer(u"maxItems"_s), 7);
    press(u"Max items"_s, u"50"_s);
    EXPECT_EQ(stage.defaults.integer(u"maxItems"_s), 50);
    EXPECT_EQ(picker(u"Max items"_s).value(), u"50"_s);
}

TEST_F(SettingsPagesTest, EachSwitchOfTheClipboardPageWritesItsKey) {
    open(SettingsTab::Clipboard);
    QTest::mouseClick(&switchNamed(u"Show line count"_s), Qt::LeftButton);
    QTest::mouseClick(&switchNamed(u"Show character count"_s), Qt::LeftButton);
    QTest::mouseClick(&switchNamed(u"Preview URL titles"_s), Qt::LeftButton);
    QTest::mouseClick(&switchNamed(u"Hide sensitive content"_s), Qt::LeftButton);
    EXPECT_EQ(stage.defaults.boolean(u"showLineCount"_s), false);
    EXPECT_EQ(stage.defaults.boolean(u"showCharCount"_s), false);
    EXPECT_EQ(stage.defaults.boolean(u"previewURLs"_s), false);
    EXPECT_EQ(stage.defaults.boolean(u"hideSensitive"_s), true);
    EXPECT_TRUE(shows(u"Show page titles for copied links"_s));
    EXPECT_TRUE(shows(u"Masks passwords, API keys, and tokens with ●●●●"_s));
}

TEST_F(SettingsPagesTest, ThePickerIsWorkedByTheArrowKeys) {
    open(SettingsTab::Clipboard);
    const auto segments = picker(u"Max items"_s).findChildren<QRadioButton*>();
    segments[1]->setFocus();
    QTest::keyClick(segments[1], Qt::Key_Right);
    EXPECT_EQ(stage.defaults.integer(u"maxItems"_s), 50);
    QTest::keyClick(segments[2], Qt::Key_Right);
    EXPECT_EQ(stage.defaults.integer(u"maxItems"_s), 100);
}

TEST_F(SettingsPagesTest, TabStopsAtTheSegmentThatIsChosenAndAtTheFirstWhereNoneIs) {
    open(SettingsTab::Clipboard);
    const auto segments = picker(u"Max items"_s).findChildren<QRadioButton*>();
    const auto stops = [&] {
        QStringList titles;
        for (const QRadioButton* const segment : segments) {
            if (segment->focusPolicy() & Qt::TabFocus) {
                titles << segment->text();
            }
        }
        return titles;
    };
    EXPECT_EQ(stops(), QStringList(u"20"_s));
    stage.defaults.setInteger(u"maxItems"_s, 100);
    EXPECT_EQ(stops(), QStringList(u"100"_s));
    stage.defaults.setInteger(u"maxItems"_s, 7);
    EXPECT_EQ(stops(), QStringList(u"10"_s));
}

// Shortcuts

TEST_F(SettingsPagesTest, WithoutQuickPasteItsSectionShowsOnlyTheSwitchAndItsCaption) {
    open(SettingsTab::Shortcuts);
    EXPECT_FALSE(switchNamed(u"Enable quick paste shortcuts"_s).isChecked());
    EXPECT_TRUE(shows(u"Paste recent items directly without opening the popover"_s));
    EXPECT_FALSE(shows(u"Paste 2nd item"_s));
    EXPECT_FALSE(shows(u"Paste 3rd item"_s));
}

TEST_F(SettingsPagesTest, TheRowsOfQuickPasteComeAndGoWithThePreference) {
    open(SettingsTab::Shortcuts);
    QTest::mouseClick(&switchNamed(u"Enable quick paste shortcuts"_s), Qt::LeftButton);
    EXPECT_EQ(stage.defaults.boolean(u"quickPasteEnabled"_s), true);
    EXPECT_TRUE(shows(u"Paste 2nd item"_s));
    EXPECT_TRUE(shows(u"Paste 3rd item"_s));
    stage.defaults.setBoolean(u"quickPasteEnabled"_s, false);
    EXPECT_FALSE(switchNamed(u"Enable quick paste shortcuts"_s).isChecked());
    EXPECT_FALSE(shows(u"Paste 2nd item"_s));
}

TEST_F(SettingsPagesTest, TheMainRowAlwaysShowsItsThreeKeys) {
    stage.defaults.setString(u"mainShortcut"_s, u"⌥X"_s);
    open(SettingsTab::Shortcuts);
    QStringList caps;
    for (const QWidget* const widget : stage.view->page()->findChildren<QWidget*>()) {
        if (widget->isVisible() && widget->minimumSize() == widget->maximumSize() && widget->height() == 24 &&
            !widget->accessibleName().isEmpty()) {
            caps << widget->accessibleName();
        }
    }
    EXPECT_EQ(caps, QStringList({u"⌘"_s, u"⇧"_s, u"V"_s}));
}

TEST_F(SettingsPagesTest, TheKeysOfAShortcutSayWhichKeyCommandIs) {
    open(SettingsTab::Shortcuts);
    const auto* const caps = stage.control<QWidget>(u"⌘⇧V"_s);
    ASSERT_NE(caps, nullptr);
    EXPECT_EQ(caps->toolTip(), u"⌘ is the Super key"_s);
}

TEST_F(SettingsPagesTest, TheTipsStandInTheirOrder) {
    open(SettingsTab::Shortcuts);
    const QStringList texts = shownTexts();
    EXPECT_EQ(texts.mid(texts.indexOf(u"Tips"_s)),
              QStringList({u"Tips"_s, u"Use ↑↓ arrows to navigate items"_s, u"Press Return to paste selected item"_s,
                           u"Press Esc to close the popover"_s, u"Start typing to search instantly"_s}));
}

// About

TEST_F(SettingsPagesTest, ABundleWithoutAVersionIsVersion100) {
    stage.bundle.versionText.reset();
    open(SettingsTab::About);
    EXPECT_TRUE(shows(u"Version 1.0.0"_s));
    stage.bundle.versionText = u"4.5.6"_s;
    stage.select(SettingsTab::General);
    stage.select(SettingsTab::About);
    EXPECT_TRUE(shows(u"Version 4.5.6"_s));
}

TEST_F(SettingsPagesTest, TheAboutPageIsCentredAndItsLastLineStands20AboveTheBottomAtAnySize) {
    open(SettingsTab::About);
    QWidget* const page = stage.view->page();
    for (const QSize size : {QSize(450, 500), QSize(700, 900)}) {
        page->setFixedSize(size);
        QApplication::processEvents();
        const auto labels = page->findChildren<ui::TextLabel*>();
        for (const ui::TextLabel* const label : labels) {
            const QRect place(label->mapTo(page, QPoint()), label->size());
            EXPECT_NEAR(place.center().x(), page->rect().center().x(), 1) << label->text().toStdString();
            EXPECT_TRUE(label->alignment().testFlag(Qt::AlignHCenter));
        }
        const ui::TextLabel* const last = stage.control<ui::TextLabel>(u"Free software under the MIT licence"_s);
        EXPECT_EQ(last->mapTo(page, QPoint(0, last->height())).y(), page->height() - 20);
    }
    EXPECT_TRUE(shows(u"Made with care by the Zamber project"_s));
    EXPECT_TRUE(shows(u"A minimal clipboard manager for macOS"_s));
}

} // namespace zamber::settings
