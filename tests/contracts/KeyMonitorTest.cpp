// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/QtKeyMonitor.h"
#include "tests/contracts/KeyMonitorContract.h"
#include "tests/fakes/FakeKeyMonitor.h"

#include <QApplication>
#include <QDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QWindow>

#include <memory>

namespace zamber {

namespace {

constexpr quint32 UP = 111;
constexpr quint32 DOWN = 116;
constexpr quint32 RETURN = 36;
constexpr quint32 ESCAPE = 9;
constexpr quint32 KEYPAD_ENTER = 104;
constexpr quint32 LETTER_V = 55;

struct FakeKeyMonitorRig {
    FakeKeyMonitor fake;

    KeyMonitor& monitor() { return fake; }
    KeyDisposition press(HardwareKey key) { return fake.press(key); }
};

/// A window of the program's that notes what reaches it.
struct KeyWindow final : QWindow {
    int presses = 0;
    int questions = 0;

    bool event(QEvent* event) override {
        presses += event->type() == QEvent::KeyPress ? 1 : 0;
        questions += event->type() == QEvent::ShortcutOverride ? 1 : 0;
        return QWindow::event(event);
    }

    /// As Qt delivers a press: first the question whether to keep it from the shortcuts, then the press.
    void deliver(quint32 scanCode, int key = Qt::Key_unknown, bool isRepeated = false) {
        ++m_timestamp;
        QKeyEvent question(QEvent::ShortcutOverride, key, {}, scanCode, 0, 0, {}, isRepeated);
        question.setTimestamp(m_timestamp);
        question.ignore();
        QCoreApplication::sendEvent(this, &question);
        QKeyEvent press(QEvent::KeyPress, key, {}, scanCode, 0, 0, {}, isRepeated);
        press.setTimestamp(m_timestamp);
        QCoreApplication::sendEvent(this, &press);
        wasOverridden = question.isAccepted();
    }

    bool wasOverridden = false;

private:
    quint64 m_timestamp = 100;
};

quint32 scanCodeOf(HardwareKey key) {
    switch (key) {
    case HardwareKey::UpArrow:
        return UP;
    case HardwareKey::DownArrow:
        return DOWN;
    case HardwareKey::Return:
        return RETURN;
    case HardwareKey::Escape:
        return ESCAPE;
    case HardwareKey::Other:
        break;
    }
    return LETTER_V;
}

struct QtKeyMonitorRig {
    freedesktop::QtKeyMonitor real;
    KeyWindow window;

    KeyMonitor& monitor() { return real; }
    KeyDisposition press(HardwareKey key) {
        const int before = window.presses;
        window.deliver(scanCodeOf(key));
        return window.presses == before ? KeyDisposition::Swallow : KeyDisposition::PassOn;
    }
};

class QtKeyMonitorTest : public testing::Test {
protected:
    QtKeyMonitorTest() {
        monitor.addHandler([this](HardwareKey key) {
            seen.push_back(key);
            return key == HardwareKey::Other ? KeyDisposition::PassOn : KeyDisposition::Swallow;
        });
    }

    freedesktop::QtKeyMonitor monitor;
    KeyWindow window;
    std::vector<HardwareKey> seen;
};

} // namespace

INSTANTIATE_TYPED_TEST_SUITE_P(Fake, KeyMonitorContract, FakeKeyMonitorRig);
INSTANTIATE_TYPED_TEST_SUITE_P(Qt, KeyMonitorContract, QtKeyMonitorRig);

TEST_F(QtKeyMonitorTest, APressIsAskedAboutOnceThoughItComesTwice) {
    window.deliver(RETURN);
    EXPECT_EQ(seen, std::vector{HardwareKey::Return});
    EXPECT_EQ(window.presses, 0);
    EXPECT_TRUE(window.wasOverridden) << "else a shortcut would have taken it";
    window.deliver(LETTER_V);
    EXPECT_EQ(seen, (std::vector{HardwareKey::Return, HardwareKey::Other}));
    EXPECT_EQ(window.presses, 1);
    EXPECT_FALSE(window.wasOverridden);
}

TEST_F(QtKeyMonitorTest, WhenTwoPressesComeAtOnceEachIsSeenOnceAndInItsTurn) {
    // At fast typing, or on a busy machine, Qt asks about both before it delivers the first.
    for (const QEvent::Type type : {QEvent::ShortcutOverride, QEvent::KeyPress}) {
        for (const auto& [scanCode, timestamp] : {std::pair(LETTER_V, quint64(1)), {RETURN, 2}, {DOWN, 3}}) {
            QKeyEvent one(type, Qt::Key_unknown, {}, scanCode, 0, 0);
            one.setTimestamp(timestamp);
            QCoreApplication::sendEvent(&window, &one);
        }
    }
    EXPECT_EQ(seen, (std::vector{HardwareKey::Other, HardwareKey::Return, HardwareKey::DownArrow}));
    EXPECT_EQ(window.presses, 1);
}

TEST_F(QtKeyMonitorTest, TheEnterOfTheKeypadIsAnotherKey) {
    window.deliver(KEYPAD_ENTER, Qt::Key_Enter);
    EXPECT_EQ(seen, std::vector{HardwareKey::Other});
    EXPECT_EQ(window.presses, 1);
}

TEST_F(QtKeyMonitorTest, AHeldKeyCountsEachTime) {
    window.deliver(DOWN);
    window.deliver(DOWN, Qt::Key_Down, true);
    window.deliver(DOWN, Qt::Key_Down, true);
    EXPECT_EQ(seen.size(), 3U);
}

TEST_F(QtKeyMonitorTest, AHandlerThatGoesAtItsPressKeepsItFromTheWindow) {
    freedesktop::QtKeyMonitor own;
    KeyMonitor::Token token;
    monitor.removeHandler({1});
    token = own.addHandler([&](HardwareKey) {
        own.removeHandler(token);
        return KeyDisposition::Swallow;
    });
    window.deliver(ESCAPE);
    EXPECT_EQ(window.presses, 0);
}

TEST_F(QtKeyMonitorTest, KeysOfADialogAreSeenAndKeysOfAMenuAreNot) {
    QDialog dialog;
    dialog.setModal(true);
    dialog.show();
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Escape, {}, ESCAPE, 0, 0);
    QCoreApplication::sendEvent(dialog.windowHandle(), &press);
    EXPECT_EQ(seen, std::vector{HardwareKey::Escape});
    EXPECT_TRUE(dialog.isVisible());
    dialog.hide();

    QMenu menu;
    menu.addAction(QStringLiteral("Copy"));
    menu.popup({});
    ASSERT_EQ(QApplication::activePopupWidget(), &menu);
    QKeyEvent inMenu(QEvent::KeyPress, Qt::Key_Escape, {}, ESCAPE, 0, 0);
    QCoreApplication::sendEvent(menu.windowHandle(), &inMenu);
    EXPECT_EQ(seen.size(), 1U);
    EXPECT_FALSE(menu.isVisible());
}

} // namespace zamber
