// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/wayland/Connection.h"
#include "platform/wayland/WaylandPasteboard.h"
#include "tests/contracts/PasteboardContract.h"
#include "tests/contracts/wayland/WaylandPartner.h"

#include <QFile>
#include <QGuiApplication>

#include <gmock/gmock.h>

#include <csignal>

namespace zamber::wayland {

namespace {

constexpr const char* UTF8 = "text/plain;charset=utf-8";

struct WaylandPasteboardRig {
    WaylandPartner partner;
    std::unique_ptr<Connection> connection = *Connection::open();
    WaylandPasteboard adapter{*connection};

    WaylandPasteboardRig() { settle(); }

    Pasteboard& pasteboard() { return adapter; }
    void copyText(const QByteArray& text) { partner.copy({{UTF8, text}, {"STRING", "not this one"}}); }
    void copyImage(ImageType type, const QByteArray& bytes) { partner.copy({{nameOf(type), bytes}}); }
    void copyImageWithText(ImageType type, const QByteArray& bytes, const QByteArray& text) {
        partner.copy({{UTF8, text}, {nameOf(type), bytes}});
    }
    void copyNothing() { partner.copy({{"text/uri-list-of-another-kind", "x"}}); }
    std::optional<QByteArray> pastedText() { return pasted(UTF8); }
    std::optional<QByteArray> pastedImage(ImageType type) { return pasted(nameOf(type)); }
    static bool waitUntil(const std::function<bool()>& condition) { return WaylandPartner::waitUntil(condition); }
    static void settle() {
        // Nothing more is under way when a while has passed without an event.
        WaylandPartner::waitUntil([] { return false; }, 150);
    }

private:
    static const char* nameOf(ImageType type) { return type == ImageType::Png ? "image/png" : "image/tiff"; }

    std::optional<QByteArray> pasted(const char* type) {
        settle();
        return partner.pasted(type);
    }
};

class WaylandPasteboardTest : public testing::Test {
protected:
    using Standing = WaylandPasteboard::Standing;

    WaylandPasteboardRig rig;
    WaylandPasteboard& pasteboard = rig.adapter;

    int write(const QByteArray& text) {
        pasteboard.clearContents();
        pasteboard.setString(text);
        return pasteboard.changeCount();
    }

    bool arrives(const QByteArray& text) {
        return rig.waitUntil([&] { return pasteboard.string() == text; });
    }
};

} // namespace

TEST_F(WaylandPasteboardTest, WhatIsThereAtTheStartIsKnownAndNoChange) {
    rig.copyText("there before");
    WaylandPasteboard other(*rig.connection);
    EXPECT_TRUE(rig.waitUntil([&] { return other.string() == "there before"; }));
    EXPECT_EQ(other.changeCount(), 0);
}

TEST_F(WaylandPasteboardTest, AnOwnerThatNeverDeliversChangesNothingAndANewerCopyIsReadAtOnce) {
    rig.copyText("good");
    ASSERT_TRUE(arrives("good"));
    const int count = pasteboard.changeCount();
    rig.partner.copy({{UTF8, std::nullopt}});
    ASSERT_TRUE(rig.waitUntil([&] { return rig.partner.requests().size() == 2; }));
    rig.settle();
    EXPECT_EQ(pasteboard.changeCount(), count);
    EXPECT_EQ(pasteboard.string(), "good");
    rig.copyText("newer");
    EXPECT_TRUE(arrives("newer"));
}

TEST_F(WaylandPasteboardTest, AnOwnerThatDiesInTheMiddleOfItsAnswerChangesNothing) {
    rig.copyText("good");
    ASSERT_TRUE(arrives("good"));
    const int count = pasteboard.changeCount();
    rig.partner.copyBeginning(UTF8, "the first half of");
    ASSERT_TRUE(rig.waitUntil([&] { return rig.partner.requests().size() == 2; }));
    rig.settle();
    rig.partner.die();
    rig.settle();
    EXPECT_EQ(pasteboard.changeCount(), count);
    EXPECT_EQ(pasteboard.string(), "good");
}

TEST_F(WaylandPasteboardTest, WhatWasCopiedOutlivesTheProgramThatItWasCopiedFrom) {
    rig.partner.copy({{UTF8, "orphan"}, {"image/png", "no picture"}, {"text/html", "<b>orphan</b>"}});
    ASSERT_TRUE(arrives("orphan"));
    rig.settle();
    const int count = pasteboard.changeCount();
    rig.partner.die();
    EXPECT_TRUE(rig.waitUntil([&] { return rig.partner.pasted(UTF8) == "orphan"; }));
    EXPECT_EQ(pasteboard.changeCount(), count);
}

TEST_F(WaylandPasteboardTest, ASecretIsNeitherAskedForNorKeptNorServedOn) {
    rig.copyText("harmless");
    ASSERT_TRUE(arrives("harmless"));
    const int count = pasteboard.changeCount();
    rig.partner.copy({{UTF8, "my password"}, {"x-kde-passwordManagerHint", "secret"}});
    ASSERT_TRUE(rig.waitUntil([&] { return pasteboard.changeCount() != count; }));
    EXPECT_EQ(pasteboard.string(), std::nullopt);
    EXPECT_THAT(rig.partner.requests(), testing::ElementsAre(UTF8, "x-kde-passwordManagerHint"));
    rig.partner.die();
    rig.settle();
    rig.settle();
    EXPECT_EQ(rig.partner.pasted(UTF8), std::nullopt);
}

TEST_F(WaylandPasteboardTest, AnEarlierWriteIsOfferedAgainAndTheLastInTheEnd) {
    const int first = write("first");
    const int second = write("second");
    EXPECT_EQ(rig.pastedText(), "second");
    pasteboard.holdWrites();
    pasteboard.offer(first);
    EXPECT_EQ(rig.pastedText(), "first");
    EXPECT_EQ(pasteboard.standingOf(first), Standing::Offered);
    EXPECT_EQ(pasteboard.standingOf(second), Standing::Pending);
    EXPECT_EQ(pasteboard.string(), "second") << "the program sees its last write";
    write("third");
    EXPECT_EQ(rig.pastedText(), "first");
    pasteboard.showWrites();
    EXPECT_EQ(rig.pastedText(), "third");
}

TEST_F(WaylandPasteboardTest, ManyWritesInOneGoEndWithTheLast) {
    for (int number = 0; number < 50; ++number) {
        write("write " + QByteArray::number(number));
        if (number % 10 == 0) {
            rig.waitUntil([] { return true; });
        }
    }
    EXPECT_EQ(rig.pastedText(), "write 49");
    EXPECT_EQ(pasteboard.standingOf(pasteboard.changeCount()), Standing::Offered);
}

TEST_F(WaylandPasteboardTest, ACopyOfAnotherProgramMakesEarlierWritesLost) {
    const int written = write("ours");
    rig.settle();
    rig.copyText("theirs");
    ASSERT_TRUE(rig.waitUntil([&] { return pasteboard.standingOf(written) == Standing::Lost; }));
    pasteboard.offer(written);
    rig.settle();
    EXPECT_EQ(pasteboard.string(), "theirs");
    EXPECT_EQ(rig.pastedText(), "theirs");
}

TEST_F(WaylandPasteboardTest, ATextIsServedUnderEveryUsualName) {
    write("Zoë");
    for (const char* const type : {"text/plain;charset=utf-8", "text/plain", "UTF8_STRING", "TEXT"}) {
        EXPECT_EQ(rig.partner.pasted(type), "Zoë") << type;
    }
}

TEST_F(WaylandPasteboardTest, AReaderThatStallsKeepsNobodyElseWaiting) {
    const QByteArray large(20'000'000, 'x');
    write(large);
    rig.settle();
    QProcess stalled;
    stalled.start(QStringLiteral("sh"), {QStringLiteral("-c"), QStringLiteral("wl-paste --no-newline | sleep 60")});
    ASSERT_TRUE(stalled.waitForStarted());
    rig.settle();
    EXPECT_TRUE(rig.pastedText() == large);
    stalled.kill();
    stalled.waitForFinished();
}

TEST_F(WaylandPasteboardTest, APrimaryThatWasBorrowedHoldsWhatWasWritten) {
    const int written = write("for both");
    bool isThere = false;
    pasteboard.borrowPrimary(written, [&isThere] { isThere = true; });
    ASSERT_TRUE(rig.waitUntil([&isThere] { return isThere; }));
    EXPECT_EQ(rig.pastedText(), "for both");
    pasteboard.giveBackPrimary();
}

TEST(WaylandConnection, ACompositorThatTheSessionDoesNotNameIsNotReached) {
    const QByteArray name = qgetenv("WAYLAND_DISPLAY");
    const QString folder = qEnvironmentVariable("XDG_RUNTIME_DIR");
    QFile::link(folder + u'/' + QString::fromLocal8Bit(name), folder + QStringLiteral("/wayland-0"));
    EXPECT_TRUE(Connection::open());
    qunsetenv("WAYLAND_DISPLAY");
    EXPECT_FALSE(Connection::open());
    qputenv("WAYLAND_DISPLAY", name);
}

INSTANTIATE_TYPED_TEST_SUITE_P(Wayland, PasteboardContract, WaylandPasteboardRig);

} // namespace zamber::wayland

int main(int argc, char** argv) {
    std::signal(SIGPIPE, SIG_IGN); // as the program does
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    const QGuiApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
