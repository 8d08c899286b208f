// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT

// Draws the popover in its states into the folder that is given, for people to look at. The scale is Qt's own
// (QT_SCALE_FACTOR).
#include "platform/freedesktop/BootstrapSymbols.h"
#include "platform/freedesktop/PopoverFrame.h"
#include "settings/keys/PreferenceKeys.h"
#include "tests/unit/popover/PopoverStage.h"

#include <QAbstractButton>
#include <QApplication>
#include <QBuffer>
#include <QDir>
#include <QLinearGradient>
#include <QMouseEvent>
#include <QPainter>
#include <QThread>

#include <cstdio>

using namespace zamber;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

QByteArray picture(const QColor& from, const QColor& to) {
    QImage image(640, 400, QImage::Format_RGB32);
    QPainter painter(&image);
    QLinearGradient sky(0, 0, 640, 400);
    sky.setColorAt(0, from);
    sky.setColorAt(1, to);
    painter.fillRect(image.rect(), sky);
    painter.setBrush(QColor(255, 255, 255, 150));
    painter.setPen(Qt::NoPen);
    painter.drawEllipse(QPoint(420, 150), 70, 70);
    painter.end();
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

void fill(PopoverStage& stage) {
    stage.copyText("ssh -L 8080:localhost:80 deploy@build.example.org");
    stage.scheduler.advance(50h);
    stage.copyText("Ünïcödé, 漢字, emoji 👩‍👩‍👧‍👦 and arrows → ⇧⌘");
    stage.manager->togglePin(stage.manager->items().first());
    stage.scheduler.advance(3h);
    stage.copyImage(picture(QColor(0x21, 0x93, 0xb0), QColor(0x6d, 0xd5, 0xed)));
    stage.copyText(
        "for (const auto& item : items) {\n    if (item.isPinned) {\n        continue;\n    }\n    remove(item);\n}");
    stage.scheduler.advance(24min);
    stage.copyText("SELECT name, count(*) FROM entries WHERE pinned = 1 GROUP BY name ORDER BY 2 DESC LIMIT 20");
    stage.manager->togglePin(stage.manager->items().first());
    stage.scheduler.advance(3min);
    stage.copyImage(picture(QColor(0xee, 0x09, 0x79), QColor(0xff, 0x6a, 0x00)));
    stage.copyText("password = hunter2-Correct!Horse9");
    stage.scheduler.advance(40s);
    stage.copyText(
        "The quick brown fox jumps over the lazy dog, and then it does the same thing once more because a single "
        "jump was not nearly long enough to fill the whole preview of this row, so it goes on and on until the "
        "reader is tired of foxes and dogs alike.");
    stage.copyText("12 Baker Street");
}

void settle() {
    for (int turn = 0; turn < 40; ++turn) {
        QCoreApplication::processEvents();
        QThread::msleep(5);
    }
}

class Camera {
public:
    Camera(const QString& folder, const QString& suffix)
        : m_folder(folder)
        , m_suffix(suffix) {}

    void shoot(PopoverStage& stage, const QString& name) const {
        PopoverFrame frame;
        frame.setContent(stage.view.get());
        frame.setShape(FrameShape::RoundedWithShadow);
        frame.setLook(stage.appearance.isDark() ? FrameLook::Dark : FrameLook::Light);
        frame.setContentGeometry(QRect(QPoint(60, 60), stage.view->size()));
        frame.show();
        prepare(stage);
        settle();
        const QImage shot = frame.grab().toImage();
        QImage wall(shot.size(), QImage::Format_RGB32);
        wall.setDevicePixelRatio(shot.devicePixelRatio());
        wall.fill(stage.appearance.isDark() ? QColor(0x3b, 0x4a, 0x5f) : QColor(0xb9, 0xc8, 0xd8));
        QPainter painter(&wall);
        painter.drawImage(QPointF(0, 0), shot);
        painter.end();
        wall.save(m_folder + u'/' + name + m_suffix + u".png"_s);
        frame.hide();
        frame.setContent(nullptr);
    }

    std::function<void(PopoverStage&)> prepare = [](PopoverStage&) {};

private:
    QString m_folder;
    QString m_suffix;
};

void press(PopoverStage& stage, HardwareKey key, int times) {
    for (int time = 0; time < times; ++time) {
        stage.keyMonitor.press(key);
    }
}

void hover(HistoryListWidget& list, QPoint point) {
    QMouseEvent move(QEvent::MouseMove, point, list.mapToGlobal(point), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&list, &move);
}

} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    if (argc != 2) {
        std::fputs("popover_screens <folder>\n", stderr);
        return 2;
    }
    const QString folder = QString::fromLocal8Bit(argv[1]);
    QDir().mkpath(folder);
    const BootstrapSymbols symbols;

    for (const bool isDark : {false, true}) {
        Camera camera(folder, (isDark ? u"-dark"_s : u"-light"_s) + u"@%1x"_s.arg(application.devicePixelRatio()));
        const auto stage = [&] {
            auto made = std::make_unique<PopoverStage>(symbols);
            made->appearance.setDark(isDark);
            return made;
        };

        auto empty = stage();
        empty->makeView();
        camera.shoot(*empty, u"empty"_s);
        empty.reset();

        auto mixed = stage();
        fill(*mixed);
        mixed->makeView();
        camera.shoot(*mixed, u"mixed"_s);
        camera.prepare = [](PopoverStage& shown) {
            press(shown, HardwareKey::DownArrow, 3);
            const QRect row = shown.list().actionRectangle(4, RowAction::Delete);
            hover(shown.list(), shown.list().rowRectangle(4).center());
            hover(shown.list(), QPoint(row.center().x(), shown.list().rowRectangle(4).center().y()));
        };
        camera.shoot(*mixed, u"selected-and-hovered"_s);
        camera.prepare = [](PopoverStage& shown) { press(shown, HardwareKey::DownArrow, 20); };
        camera.shoot(*mixed, u"scrolled"_s);
        camera.prepare = [](PopoverStage& shown) {
            shown.defaults.setBoolean(keys::hideSensitive.name, true);
            shown.manager->setSearchText(u"o"_s);
        };
        camera.shoot(*mixed, u"search"_s);
        camera.prepare = [](PopoverStage& shown) { shown.manager->setSearchText(u"nothing like this"_s); };
        camera.shoot(*mixed, u"no-match"_s);
        camera.prepare = [](PopoverStage& shown) {
            shown.manager->setSearchText({});
            shown.view->findChild<QAbstractButton*>(u"clearButton"_s)->click();
        };
        camera.shoot(*mixed, u"clear"_s);
        camera.prepare = [](PopoverStage&) {};
        mixed->defaults.setString(keys::popoverSize.name, u"compact"_s);
        camera.shoot(*mixed, u"compact"_s);
        mixed.reset();

        camera.prepare = [](PopoverStage&) {};
        auto recent = stage();
        recent->copyTexts(12);
        recent->makeView();
        camera.shoot(*recent, u"recent-only"_s);
    }
    return 0;
}
