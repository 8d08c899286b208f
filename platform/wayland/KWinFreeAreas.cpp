// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/wayland/KWinFreeAreas.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStandardPaths>

#include <cmath>

namespace zamber::wayland {

namespace {

using namespace Qt::StringLiterals;

const QString SERVICE = u"org.kde.KWin"_s;
const QString SCRIPTING_PATH = u"/Scripting"_s;
const QString NAME = u"app.zamber.FreeAreas"_s; // of the script, and of the interface that it calls
const QString PATH = u"/FreeAreas"_s;

/// %1 is this program on the bus, %2 and %3 are its object and the object's interface. KWin reckons the areas a moment
/// after it has told of what they depend on.
constexpr QLatin1StringView SCRIPT(R"("use strict";
let told = "";
function tell() {
    const areas = {};
    for (const screen of workspace.screens) {
        const area = workspace.clientArea(KWin.MaximizeArea, screen, workspace.currentDesktop);
        areas[screen.name] = [area.x, area.y, area.width, area.height];
    }
    const now = JSON.stringify(areas);
    if (now !== told) {
        told = now;
        callDBus("%1", "%2", "%3", "setFreeAreas", now);
    }
}
let isChangedAgain = false;
const timer = new QTimer();
timer.singleShot = true;
timer.interval = 50;
function tellSoon() {
    if (timer.active) {
        isChangedAgain = true;
    } else {
        timer.start();
    }
}
timer.timeout.connect(() => {
    tell();
    if (isChangedAgain) {
        isChangedAgain = false;
        timer.start();
    }
});
function follow(window) {
    if (window.dock) {
        window.frameGeometryChanged.connect(tellSoon);
    }
    tellSoon();
}
workspace.windowList().forEach(follow);
workspace.windowAdded.connect(follow);
workspace.windowRemoved.connect(tellSoon);
workspace.screensChanged.connect(tellSoon);
workspace.virtualScreenGeometryChanged.connect(tellSoon);
tell();
)");

QDBusMessage callTo(const QString& path, const QString& method, const QVariantList& arguments) {
    const QString interface = path == SCRIPTING_PATH ? u"org.kde.kwin.Scripting"_s : u"org.kde.kwin.Script"_s;
    QDBusMessage message = QDBusMessage::createMethodCall(SERVICE, path, interface, method);
    message.setArguments(arguments);
    message.setAutoStartService(false);
    return message;
}

/// The points that are wholly inside.
QRect inside(const QRectF& area) {
    return {QPoint(static_cast<int>(std::ceil(area.left())), static_cast<int>(std::ceil(area.top()))),
            QPoint(static_cast<int>(std::floor(area.right())) - 1, static_cast<int>(std::floor(area.bottom())) - 1)};
}

} // namespace

KWinFreeAreas::KWinFreeAreas()
    : m_script(QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation) + u"/zamber-XXXXXX.js"_s) {
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected() || !m_script.open()) {
        return;
    }
    m_script.write(QString(SCRIPT).arg(bus.baseService(), PATH, NAME).toUtf8());
    m_script.close();
    bus.registerObject(PATH, this, QDBusConnection::ExportScriptableSlots);
    // One of this name may be there from a start that ended without a farewell.
    ask(SCRIPTING_PATH, u"unloadScript"_s, {NAME}, [this](const QDBusMessage&) { load(); });
}

KWinFreeAreas::~KWinFreeAreas() {
    QDBusConnection::sessionBus().send(callTo(SCRIPTING_PATH, u"unloadScript"_s, {NAME}));
}

std::optional<QRect> KWinFreeAreas::of(const QString& screen) const {
    const auto found = m_areas.find(screen);
    return found != m_areas.end() ? std::optional(*found) : std::nullopt;
}

void KWinFreeAreas::setFreeAreas(const QString& areas) {
    m_areas = freeAreasIn(areas);
}

void KWinFreeAreas::load() {
    ask(SCRIPTING_PATH, u"loadScript"_s, {m_script.fileName(), NAME}, [this](const QDBusMessage& answer) {
        const int script = answer.arguments().value(0, -1).toInt();
        if (answer.type() == QDBusMessage::ReplyMessage && script >= 0) {
            run(script);
        }
    });
}

void KWinFreeAreas::run(int script) {
    ask(u"/Scripting/Script"_s + QString::number(script), u"run"_s, {}, [this](const QDBusMessage& answer) {
        m_script.remove();                                 // it has been read
        if (answer.type() == QDBusMessage::ErrorMessage) { // KWin 5, whose scripts know no screens
            QDBusConnection::sessionBus().send(callTo(SCRIPTING_PATH, u"unloadScript"_s, {NAME}));
        }
    });
}

void KWinFreeAreas::ask(const QString& path, const QString& method, const QVariantList& arguments,
                        const std::function<void(const QDBusMessage&)>& then) {
    auto* const watcher =
        new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(callTo(path, method, arguments)), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [watcher, then] {
        watcher->deleteLater();
        then(watcher->reply());
    });
}

QHash<QString, QRect> freeAreasIn(const QString& told) {
    QHash<QString, QRect> areas;
    const QJsonObject screens = QJsonDocument::fromJson(told.toUtf8()).object();
    for (auto screen = screens.begin(); screen != screens.end(); ++screen) {
        const QJsonArray numbers = screen.value().toArray();
        const QRectF area(numbers.at(0).toDouble(), numbers.at(1).toDouble(), numbers.at(2).toDouble(),
                          numbers.at(3).toDouble());
        if (!area.isEmpty()) {
            areas.insert(screen.key(), inside(area));
        }
    }
    return areas;
}

} // namespace zamber::wayland
