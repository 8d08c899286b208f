// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT

// Pictures of every page of the settings window: settings_screens <folder>

#include "SettingsStage.h"
#include "preferences/PreferenceKeys.h"

#include "platform/freedesktop/BootstrapSymbols.h"

#include <QApplication>
#include <QDir>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>

#include <cstdio>

namespace zamber::settings {

using namespace Qt::StringLiterals;

namespace {

constexpr auto AVAILABLE = R"({"updateAvailable": true, "latestVersion": "3.0.0"})";

struct Camera {
    QString folder;
    QString suffix;
    bool isGood = true;

    void shoot(SettingsStage& stage, const QString& name) {
        QApplication::processEvents();
        const QString path = u"%1/settings-%2%3.png"_s.arg(folder, name, suffix);
        const QImage picture = stage.view->grab().toImage();
        const bool isWhole = picture.size() == stage.view->size() * picture.devicePixelRatio();
        const bool isSaved = isWhole && picture.save(path);
        isGood = isGood && isSaved;
        std::printf("%s%s\n", qPrintable(path), isSaved ? "" : ": not saved");
    }
};

void scrollToEnd(SettingsStage& stage) {
    if (const auto* const page = qobject_cast<QScrollArea*>(stage.view->page())) {
        page->verticalScrollBar()->setValue(page->verticalScrollBar()->maximum());
    }
}

/// Each control of the page with the keyboard's focus, in the order in which Tab reaches them.
void shootFocus(Camera& camera, SettingsStage& stage) {
    const QWidget* const first = QApplication::focusWidget();
    for (int stop = 0; stop == 0 || QApplication::focusWidget() != first; ++stop) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        camera.shoot(stage, u"focus-%1"_s.arg(stop));
        if (constexpr int most = 20; stop == most) {
            camera.isGood = false;
            break;
        }
    }
}

void shootAll(Camera& camera, const Symbols& symbols, bool isDark) {
    SettingsStage stage(symbols);
    stage.appearance.setDark(isDark);
    stage.loginItem.current = LoginItemStatus::Enabled;
    stage.open();
    for (const SettingsTab tab : ALL_SETTINGS_TABS) {
        stage.select(tab);
        camera.shoot(stage, rawValue(tab).toLower());
    }
    stage.defaults.setBoolean(preferences::quickPasteEnabled.name, true);
    stage.select(SettingsTab::Shortcuts);
    camera.shoot(stage, u"shortcuts-quick-paste"_s);

    stage.select(SettingsTab::General);
    shootFocus(camera, stage);
    scrollToEnd(stage);
    camera.shoot(stage, u"general-end"_s);
    stage.updates->checkForUpdates();
    camera.shoot(stage, u"general-checking"_s);
}

/// What the end of the General page shows when there is something to do.
void shootToDo(Camera& camera, const Symbols& symbols, bool isDark) {
    SettingsStage stage(symbols);
    stage.appearance.setDark(isDark);
    stage.trust.isGranted = false;
    stage.web.answer = QByteArray(AVAILABLE);
    stage.updates->checkForUpdates();
    camera.isGood = camera.isGood && QTest::qWaitFor([&] { return stage.updates->updateAvailable(); });
    stage.open();
    scrollToEnd(stage);
    camera.shoot(stage, u"general-to-do"_s);
}

} // namespace

} // namespace zamber::settings

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    if (argc != 2) {
        std::fputs("settings_screens <folder>\n", stderr);
        return 2;
    }
    const QString folder = QString::fromLocal8Bit(argv[1]);
    QDir().mkpath(folder);
    const zamber::freedesktop::BootstrapSymbols symbols;
    bool isGood = true;
    for (const bool isDark : {false, true}) {
        using namespace Qt::StringLiterals;
        const QString suffix = (isDark ? u"-dark"_s : u"-light"_s) + u"@%1x"_s.arg(application.devicePixelRatio());
        zamber::settings::Camera camera{.folder = folder, .suffix = suffix};
        zamber::settings::shootAll(camera, symbols, isDark);
        zamber::settings::shootToDo(camera, symbols, isDark);
        isGood = isGood && camera.isGood;
    }
    return isGood ? 0 : 1;
}
