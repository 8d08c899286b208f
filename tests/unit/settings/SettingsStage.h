// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "settings/SettingsServices.h"
#include "settings/SettingsSidebar.h"
#include "settings/SettingsTheme.h"
#include "settings/SettingsView.h"
#include "tests/fakes/FakeAccessibilityTrust.h"
#include "tests/fakes/FakeAppBundle.h"
#include "tests/fakes/FakeAppearance.h"
#include "tests/fakes/FakeLoginItem.h"
#include "tests/fakes/FakeScheduler.h"
#include "tests/fakes/FakeUserDefaults.h"
#include "tests/fakes/FakeWebClient.h"
#include "tests/fakes/FakeWorkspace.h"
#include "update/UpdateManager.h"

#include <QApplication>

#include <memory>

namespace zamber::settings {

/// Everything that the settings window shows and changes.
class SettingsStage {
public:
    explicit SettingsStage(const Symbols& symbolSet)
        : symbols(symbolSet) {}

    SettingsView& open() {
        theme = std::make_unique<SettingsTheme>(symbols, appearance);
        view = std::make_unique<SettingsView>(*theme, services());
        view->show();
        return *view;
    }

    void select(SettingsTab tab) { view->findChild<SettingsSidebar*>()->setCurrentRow(static_cast<int>(tab)); }

    SettingsServices services() {
        return {.defaults = defaults,
                .loginItem = loginItem,
                .trust = trust,
                .workspace = workspace,
                .bundle = bundle,
                .updates = *updates,
                .commandKeyHint = QStringLiteral("⌘ is the Super key"),
                .desktopShortcut = desktopShortcut};
    }

    template <class Control>
    Control* control(const QString& name) const {
        for (Control* const found : view->findChildren<Control*>()) {
            if (nameOf(*found) == name) {
                return found;
            }
        }
        return nullptr;
    }

    const Symbols& symbols;
    Journal journal;
    FakeAppearance appearance;
    FakeUserDefaults defaults;
    FakeLoginItem loginItem;
    FakeAccessibilityTrust trust;
    FakeWorkspace workspace{journal};
    FakeAppBundle bundle;
    FakeScheduler scheduler;
    FakeWebClient web;
    std::shared_ptr<update::UpdateManager> updates =
        update::UpdateManager::create(scheduler, defaults, bundle, workspace, web);
    DesktopShortcut* desktopShortcut = nullptr;
    std::unique_ptr<SettingsTheme> theme;
    std::unique_ptr<SettingsView> view;

private:
    static QString nameOf(const QWidget& widget) {
        const QVariant text = widget.property("text");
        return text.isValid() ? text.toString() : widget.accessibleName();
    }
};

} // namespace zamber::settings
