// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/wayland/SwayConnection.h"

#include "SwayStandIn.h"

#include "tests/support/Waiting.h"

#include <QAbstractEventDispatcher>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QLocalServer>
#include <QTemporaryDir>
#include <QTimer>

#include <gtest/gtest.h>

namespace zamber::wayland {

using namespace std::chrono_literals;

namespace {

/// The path where sway is looked for, as long as it lives.
struct SwayAt {
    explicit SwayAt(const QString& path) { qputenv("SWAYSOCK", path.toLocal8Bit()); }
    ~SwayAt() { qunsetenv("SWAYSOCK"); }
};

} // namespace

TEST(SwayConnection, ThereIsNoneWhereNobodyListens) {
    EXPECT_EQ(SwayConnection::open(), nullptr) << "no place";
    const QTemporaryDir folder;
    for (const QString& path : {folder.filePath(QStringLiteral("nobody")), QStringLiteral("/") + QString(300, u'x')}) {
        const SwayAt place(path);
        EXPECT_EQ(SwayConnection::open(), nullptr) << path.toStdString();
    }
}

TEST(SwayConnection, OneThatIsSilentIsNotWaitedForForEver) {
    const QTemporaryDir folder;
    QLocalServer silent;
    ASSERT_TRUE(silent.listen(folder.filePath(QStringLiteral("silent"))));
    const SwayAt place(silent.fullServerName());
    QElapsedTimer clock;
    clock.start();
    EXPECT_EQ(SwayConnection::open(), nullptr);
    EXPECT_GE(clock.elapsed(), 900);
    EXPECT_LT(clock.elapsed(), 5000);
}

TEST(SwayConnection, CommandsAndLongAnswersComeWhole) {
    const QByteArray longText(300'000, 'x');
    SwayStandIn sway(R"({"name":")" + longText +
                     R"(","type":"root","nodes":[{"type":"con","focused":true,"fullscreen_mode":1}]})");
    const auto connection = SwayConnection::open();
    ASSERT_NE(connection, nullptr);
    EXPECT_TRUE(connection->isFullScreenFocused());
    EXPECT_TRUE(connection->run(longText));
    EXPECT_EQ(sway.takeCommands(), std::vector<QByteArray>{longText});
    sway.refuseCommands(1);
    EXPECT_FALSE(connection->run("no"));
}

TEST(SwayConnection, ASwayThatHasGoneIsNotWaitedFor) {
    auto sway = std::make_unique<SwayStandIn>("{}");
    const auto connection = SwayConnection::open();
    ASSERT_NE(connection, nullptr);
    sway.reset();
    letPass(50ms); // the loop hears of it
    QElapsedTimer clock;
    clock.start();
    for (int time = 0; time < 20; ++time) {
        EXPECT_FALSE(connection->run("nop"));
    }
    EXPECT_LT(clock.elapsed(), 900);
}

TEST(SwayConnection, ASwayThatHasGoneDoesNotKeepTheLoopBusy) {
    auto sway = std::make_unique<SwayStandIn>("{}");
    const auto connection = SwayConnection::open();
    ASSERT_NE(connection, nullptr);
    sway.reset();
    int turns = 0;
    QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::awake, connection.get(),
                     [&turns] { ++turns; });
    QEventLoop loop; // which turns as often as there is something to do
    QTimer::singleShot(300ms, &loop, &QEventLoop::quit);
    loop.exec();
    EXPECT_LT(turns, 100);
}

} // namespace zamber::wayland
