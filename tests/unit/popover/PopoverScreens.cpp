// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT

// Draws the popover in its states into the folder that is given, for people to look at. The scale is Qt's own
// (QT_SCALE_FACTOR).
#include "preferences/PreferenceKeys.h"

#include "platform/freedesktop/BootstrapSymbols.h"
#include "platform/freedesktop/popover/PopoverFrame.h"
#include "tests/unit/popover/PopoverStage.h"
#include "ui/PopupStyler.h"

#include <QAbstractButton>
#include <QApplication>
#include <QBuffer>
#include <QContextMenuEvent>
#include <QDir>
#include <QKeyEvent>
#include <QLinearGradient>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QThread>
#include <QToolTip>

#include <cstdio>

using namespace zamber;
using namespace zamber::popover;
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
    stage.copyText("Zażółć gęślą jaźń · Привет, мир · Ελληνικά → ⇧⌘");
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
    stage.copyText("https://docs.example.org/guide/getting-started#keyboard");
    stage.scheduler.advance(8s);
    stage.copyText("12 Baker Street");
}

void fillWithLinks(PopoverStage& stage) {
    stage.copyText("https://example.org");
    stage.scheduler.advance(5h);
    stage.copyText("mailto:someone@example.org");
    stage.scheduler.advance(26min);
    stage.copyText("Have a look at https://news.example.org/2026/11/keyboards before we talk on Monday");
    stage.scheduler.advance(12s);
    stage.copyText("https://docs.example.org/guide/getting-started#keyboard");
    stage.copyText("Not a link");
}

void fillWithEmoji(PopoverStage& stage) {
    stage.copyText("😀 🇩🇪 ☎ ☎\uFE0F ☎\uFE0E ❤ ❤\uFE0F 1\uFE0F⃣ #\uFE0F⃣ 👩\u200D💻 👍🏽 "
                   "🏴\U000E0067\U000E0062\U000E0073\U000E0063\U000E0074\U000E007F © ⌚ ✔ → ⌘⇧");
    stage.copyText(
        "שלום 😀 עולם, מזל טוב 🎉 ועוד הרבה דברים טובים שיהיו ארוכים מדי בשביל שורה אחת, ואולי גם בשביל שתיים 🎂🎂");
    stage.copyText("A party 🎉 with cake 🎂 and a telephone ☎ which rings ☎\uFE0F all the time, until nobody can hear "
                   "it any more 🙉 and all go home 🏠");
    stage.copyText("No emoji at all, on the same lines");
    stage.copyText("https://example.org/🍕?q=☎\uFE0F");
}

void fillWithImages(PopoverStage& stage) {
    stage.copyImage("these bytes are no picture");
    stage.scheduler.advance(1h);
    stage.copyImage(picture(QColor(0x1d, 0x97, 0x6c), QColor(0x93, 0xf9, 0xb9)));
    stage.copyImage(picture(QColor(0x21, 0x93, 0xb0), QColor(0x6d, 0xd5, 0xed)));
    stage.scheduler.advance(9min);
    stage.copyImage(picture(QColor(0xee, 0x09, 0x79), QColor(0xff, 0x6a, 0x00)));
    stage.copyText("Between pictures");
}

void settle() {
    for (int turn = 0; turn < 40; ++turn) {
        QCoreApplication::processEvents();
        QThread::msleep(5);
    }
}

/// Takes pictures, and looks at each whether there is something on it that is on no other.
class Camera {
public:
    Camera(const QString& folder, const QString& suffix)
        : m_folder(folder)
        , m_suffix(suffix) {}

    using Preparation = std::function<void(PopoverStage&)>;

    void shoot(PopoverStage& stage, const QString& name, const Preparation& prepare = {}) {
        freedesktop::popover::PopoverFrame frame;
        frame.setContent(stage.view.get());
        frame.setShape(freedesktop::popover::FrameShape::RoundedWithShadow);
        frame.setColorScheme(stage.appearance.isDark() ? freedesktop::popover::ColorScheme::Dark
                                                       : freedesktop::popover::ColorScheme::Light);
        frame.setContentGeometry(QRect(QPoint(60, 60), stage.view->size()));
        frame.show();
        if (prepare) {
            prepare(stage);
        }
        settle();
        const QImage shot = frame.grab().toImage();
        QImage wall(shot.size(), QImage::Format_RGB32);
        wall.setDevicePixelRatio(shot.devicePixelRatio());
        wall.fill(stage.appearance.isDark() ? QColor(0x3b, 0x4a, 0x5f) : QColor(0xb9, 0xc8, 0xd8));
        QPainter painter(&wall);
        painter.drawImage(QPointF(0, 0), shot);
        for (QWidget* const window : QApplication::topLevelWidgets()) {
            if (window->isVisible() && window != &frame) { // a menu or a tool tip
                painter.drawPixmap(window->pos() - frame.pos(), window->grab());
            }
        }
        painter.end();
        keep(wall, name, frame.contentGeometry().size() * shot.devicePixelRatio());
        QToolTip::hideText();
        frame.hide();
        frame.setContent(nullptr);
    }

    int faults() const { return m_faults; }

private:
    void keep(const QImage& picture, const QString& name, QSizeF leastPixels) {
        const bool isLarge = picture.width() > leastPixels.width() && picture.height() > leastPixels.height();
        if (!isLarge || m_taken.contains(picture) || !picture.save(m_folder + u'/' + name + m_suffix + u".png"_s)) {
            std::fprintf(stderr, "%s%s is too small, like another one, or not to be saved\n", qPrintable(name),
                         qPrintable(m_suffix));
            ++m_faults;
        }
        m_taken.append(picture);
    }

    QString m_folder;
    QString m_suffix;
    QList<QImage> m_taken;
    int m_faults = 0;
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

void shootHistory(PopoverStage& stage, Camera& camera) {
    camera.shoot(stage, u"mixed"_s);
    camera.shoot(stage, u"hovered"_s, [](PopoverStage& shown) {
        press(shown, HardwareKey::DownArrow, 2);
        hover(shown.list(), shown.list().rowRectangle(3).center());
        hover(shown.list(), shown.list().actionRectangle(3, RowAction::Pin).center());
    });
    camera.shoot(stage, u"expanded"_s, [](PopoverStage& shown) { press(shown, HardwareKey::DownArrow, 4); });
    camera.shoot(stage, u"end"_s, [](PopoverStage& shown) { press(shown, HardwareKey::DownArrow, 20); });
    camera.shoot(stage, u"search"_s, [](PopoverStage& shown) { shown.manager->setSearchText(u"o"_s); });
    camera.shoot(stage, u"no-match"_s, [](PopoverStage& shown) { shown.manager->setSearchText(u"nowhere"_s); });
    camera.shoot(stage, u"clear"_s, [](PopoverStage& shown) {
        shown.manager->setSearchText({});
        shown.view->findChild<QAbstractButton*>(u"clearButton"_s)->click();
    });
    camera.shoot(stage, u"banner"_s,
                 [](PopoverStage& shown) { shown.view->setUpdateNotice(UpdateNotice{u"1.1.0"_s, [] {}, [] {}}); });
    stage.view->setUpdateNotice(std::nullopt);
    camera.shoot(stage, u"masked"_s, [](PopoverStage& shown) {
        shown.defaults.setBoolean(preferences::hideSensitive.name, true);
        press(shown, HardwareKey::DownArrow, 5);
    });
    stage.defaults.setBoolean(preferences::hideSensitive.name, false);
    camera.shoot(stage, u"menu"_s, [](PopoverStage& shown) {
        const QPoint place = shown.list().rowRectangle(1).center();
        QContextMenuEvent wish(QContextMenuEvent::Mouse, place, shown.list().mapToGlobal(place));
        QCoreApplication::sendEvent(&shown.list(), &wish);
        auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        menu->setActiveAction(menu->actions().first());
    });
    camera.shoot(stage, u"menu-delete"_s, [](PopoverStage& shown) {
        press(shown, HardwareKey::DownArrow, 3);
        QKeyEvent keys(QEvent::KeyPress, Qt::Key_F10, Qt::ShiftModifier);
        QCoreApplication::sendEvent(shown.view.get(), &keys);
        auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        menu->setActiveAction(menu->actions().last());
    });
    camera.shoot(stage, u"tool-tip"_s, [](PopoverStage& shown) {
        settle(); // a window that becomes active takes tool tips away
        auto* const clear = shown.view->findChild<QAbstractButton*>(u"clearButton"_s);
        QToolTip::showText(clear->mapToGlobal(QPoint(10, -40)), clear->toolTip(), clear);
    });
    for (const QString& size : {u"compact"_s, u"large"_s}) {
        stage.defaults.setString(preferences::popoverSize.name, size);
        camera.shoot(stage, size);
    }
}

int shootAll(const QString& folder, bool isDark) {
    const freedesktop::BootstrapSymbols symbols;
    Camera camera(folder, (isDark ? u"-dark"_s : u"-light"_s) + u"@%1x"_s.arg(qApp->devicePixelRatio()));
    const auto shoot = [&](const std::function<void(PopoverStage&)>& fillWith, const auto& shootStage) {
        PopoverStage stage(symbols);
        stage.appearance.setDark(isDark);
        ui::PopupStyler popups([] { return true; });
        fillWith(stage);
        stage.makeView();
        shootStage(stage);
    };
    const auto once = [&](const QString& name) {
        return [&camera, name](PopoverStage& stage) { camera.shoot(stage, name); };
    };
    shoot([](PopoverStage&) {}, once(u"empty"_s));
    shoot([](PopoverStage& stage) { stage.copyText("The only one"); }, once(u"one"_s));
    shoot([](PopoverStage& stage) { stage.copyTexts(12); }, once(u"recent-only"_s));
    shoot(fillWithImages, once(u"images"_s));
    shoot(fillWithEmoji, [&](PopoverStage& stage) {
        camera.shoot(stage, u"emoji"_s, [](PopoverStage& shown) { press(shown, HardwareKey::DownArrow, 2); });
    });
    shoot(fillWithLinks, [&](PopoverStage& stage) {
        camera.shoot(stage, u"links"_s, [](PopoverStage& shown) { press(shown, HardwareKey::DownArrow, 1); });
    });
    shoot(fill, [&](PopoverStage& stage) { shootHistory(stage, camera); });
    return camera.faults();
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
    return shootAll(folder, false) + shootAll(folder, true) == 0 ? 0 : 1;
}
