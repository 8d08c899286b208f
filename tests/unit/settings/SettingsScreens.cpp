// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT

// Pictures of every page of the settings window: settings_screens <folder>

#include "SettingsStage.h"

#include "platform/freedesktop/BootstrapSymbols.h"
#include "settings/keys/PreferenceKeys.h"

#include <QApplication>
#include <QDir>

#include <cstdio>

namespace zamber {

using namespace Qt::StringLiterals;

namespace {

struct Camera {
    QString folder;
    QString suffix;

    void shoot(SettingsStage& stage, const QString& name) const {
        QApplication::processEvents();
        const QString path = u"%1/settings-%2%3.png"_s.arg(folder, name, suffix);
        std::puts(stage.view->grab().save(path) ? qPrintable(path) : "not saved");
    }
};

void shootAll(const Camera& camera, const Symbols& symbols, bool isDark) {
    SettingsStage stage(symbols);
    stage.appearance.setDark(isDark);
    stage.loginItem.current = LoginItemStatus::Enabled;
    stage.open();
    for (const SettingsTab tab : ALL_SETTINGS_TABS) {
        stage.select(tab);
        camera.shoot(stage, rawValue(tab).toLower());
    }
    stage.defaults.setBoolean(keys::quickPasteEnabled.name, true);
    stage.defaults.setBoolean(keys::hideSensitive.name, true);
    stage.trust.isGranted = false;
    stage.select(SettingsTab::Shortcuts);
    camera.shoot(stage, u"shortcuts-quick-paste"_s);
}

} // namespace

} // namespace zamber

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    if (argc != 2) {
        std::fputs("settings_screens <folder>\n", stderr);
        return 2;
    }
    const QString folder = QString::fromLocal8Bit(argv[1]);
    QDir().mkpath(folder);
    const zamber::BootstrapSymbols symbols;
    for (const bool isDark : {false, true}) {
        using namespace Qt::StringLiterals;
        const QString suffix = (isDark ? u"-dark"_s : u"-light"_s) + u"@%1x"_s.arg(application.devicePixelRatio());
        zamber::shootAll({.folder = folder, .suffix = suffix}, symbols, isDark);
    }
    return 0;
}
