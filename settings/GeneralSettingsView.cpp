// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "settings/GeneralSettingsView.h"

#include "platform/AccessibilityTrust.h"
#include "platform/Log.h"
#include "platform/LoginItem.h"
#include "platform/Workspace.h"
#include "settings/PreferenceBinding.h"
#include "settings/SettingsControls.h"
#include "settings/SettingsTheme.h"
#include "settings/SettingsUI.h"
#include "settings/UpdateStatus.h"
#include "ui/BorderedButton.h"
#include "ui/Switch.h"
#include "ui/SymbolView.h"
#include "ui/TextLabel.h"
#include "ui/Typography.h"
#include "update/UpdateManager.h"

#include <QHBoxLayout>

namespace zamber::settings {

using namespace Qt::StringLiterals;

namespace {
constexpr int THEME_WIDTH = 200;
constexpr int POPOVER_SIZE_WIDTH = 220;
constexpr int VALUE_POINTS = 13;
constexpr int GRANTED_SPACING = 4;
} // namespace

GeneralSettingsView::GeneralSettingsView(const SettingsTheme& theme, const SettingsServices& services)
    : SettingsPage(theme)
    , m_services(services) {
    add(settingsHeader(theme, u"General"_s, u"gearshape.fill"_s));
    add(startupSection());
    add(appearanceSection());
    add(feedbackSection());
    add(updatesSection());
    add(permissionsSection());
}

QWidget* GeneralSettingsView::startupSection() {
    return settingsSection(theme(), u"Startup"_s, [this](QBoxLayout& card) {
        ui::Switch* const launchAtLogin = settingsSwitch(theme(), u"Launch at login"_s);
        launchAtLogin->setChecked(m_services.loginItem.status() == LoginItemStatus::Enabled);
        connect(launchAtLogin, &ui::Switch::toggled, this, &GeneralSettingsView::changeLaunchAtLogin);
        card.addWidget(settingsRow([&](QBoxLayout& line) { line.addWidget(launchAtLogin); }));
    });
}

void GeneralSettingsView::changeLaunchAtLogin(bool isOn) {
    LoginItem& item = m_services.loginItem;
    // The switch stays where the user has put it, also when the desktop refuses.
    if (const auto done = isOn ? item.registerItem() : item.unregisterItem(); !done) {
        logLine("❌ Launch at login: " + done.error().toStdString());
    }
}

QWidget* GeneralSettingsView::appearanceSection() {
    return settingsSection(theme(), u"Appearance"_s, [this](QBoxLayout& card) {
        const auto choice =
            settingsPickerRow(theme(), u"Theme"_s, THEME_WIDTH,
                              {{u"Auto"_s, u"auto"_s}, {u"Light"_s, u"light"_s}, {u"Dark"_s, u"dark"_s}});
        bind(*choice.picker, m_services.defaults, preferences::appTheme);
        card.addWidget(choice.row);
        card.addWidget(settingsDivider(theme()));
        const auto size =
            settingsPickerRow(theme(), u"Popover size"_s, POPOVER_SIZE_WIDTH,
                              {{u"Compact"_s, u"compact"_s}, {u"Normal"_s, u"normal"_s}, {u"Large"_s, u"large"_s}});
        bind(*size.picker, m_services.defaults, preferences::popoverSize);
        card.addWidget(size.row);
    });
}

QWidget* GeneralSettingsView::feedbackSection() {
    return settingsSection(theme(), u"Feedback"_s, [this](QBoxLayout& card) {
        card.addWidget(
            settingsSwitchRow(theme(), m_services.defaults, preferences::playSoundOnPaste, u"Play sound on paste"_s));
    });
}

QWidget* GeneralSettingsView::updatesSection() {
    return settingsSection(theme(), u"Updates"_s, [this](QBoxLayout& card) {
        card.addWidget(settingsRow([this](QBoxLayout& line) {
            const update::UpdateManager& updates = m_services.updates;
            auto* version = new ui::TextLabel(u"v%1 (%2)"_s.arg(updates.currentVersion()).arg(updates.currentBuild()),
                                              ui::textFont(VALUE_POINTS));
            theme().apply(version, [version](const ui::Palette& palette) { version->setColor(palette.secondary); });
            line.addWidget(settingsLabel(theme(), u"Current version"_s));
            line.addStretch();
            line.addWidget(version);
        }));
        card.addWidget(settingsDivider(theme()));
        card.addWidget(settingsRow([this](QBoxLayout& line) {
            line.addWidget(settingsLabel(theme(), u"Updates"_s));
            line.addStretch();
            line.addWidget(new UpdateStatus(theme(), m_services.updates));
        }));
    });
}

QWidget* GeneralSettingsView::permissionsSection() {
    return settingsSection(theme(), u"Permissions"_s, [this](QBoxLayout& card) {
        card.addWidget(settingsRow([this](QBoxLayout& line) {
            line.addWidget(settingsLabel(theme(), u"Accessibility"_s));
            line.addStretch();
            line.addWidget(m_services.trust.isTrusted() ? grantedLabel() : grantButton());
        }));
    });
}

QWidget* GeneralSettingsView::grantedLabel() const {
    auto* granted = new QWidget;
    auto* line = new QHBoxLayout(granted);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(GRANTED_SPACING);
    auto* symbol = new ui::SymbolView(theme().symbols(), u"checkmark.circle.fill"_s, VALUE_POINTS, QFont::Medium);
    auto* text = new ui::TextLabel(u"Granted"_s, ui::textFont(VALUE_POINTS, QFont::Medium));
    line->addWidget(symbol);
    line->addWidget(text);
    theme().apply(granted, [symbol, text](const ui::Palette& palette) {
        symbol->setColor(palette.green);
        text->setColor(palette.green);
    });
    return granted;
}

QWidget* GeneralSettingsView::grantButton() {
    auto* button = new ui::BorderedButton(
        u"Grant Access"_s, {.prominence = ui::ButtonStyle::Prominence::Prominent, .size = ui::ControlSize::Small});
    theme().apply(button, [button](const ui::Palette& palette) { button->setColors(palette); });
    connect(button, &ui::BorderedButton::clicked, this, [this] {
        if (m_services.trust.hasDialog()) {
            m_services.trust.showDialog();
        } else if (const auto address = m_services.trust.settingsAddress()) {
            m_services.workspace.open(*address);
        }
    });
    return button;
}

} // namespace zamber::settings
