// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/macos/MacAlert.h"
#include "platform/macos/MacAppBundle.h"
#include "platform/macos/MacBundleFiles.h"
#include "platform/macos/MacDiskImageTool.h"
#include "tests/contracts/AlertContract.h"
#include "tests/contracts/AppBundleContract.h"
#include "tests/contracts/BundleFilesContract.h"
#include "tests/contracts/DiskImageToolContract.h"
#include "tests/contracts/StandInDiskImageTool.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

#import <AppKit/AppKit.h>

namespace zamber::macos {

namespace {

struct MacAlertRig {
    MacAlert real;

    Alert& alert() { return real; }

    static NSEvent* anyEvent() {
        return [NSEvent otherEventWithType:NSEventTypeApplicationDefined
                                  location:NSZeroPoint
                             modifierFlags:0
                                 timestamp:0
                              windowNumber:0
                                   context:nil
                                   subtype:0
                                     data1:0
                                     data2:0];
    }

    /// Ends the alert that comes next as its button, or its closing, would.
    static void answer(NSModalResponse response) {
        NSTimer* const timer = [NSTimer timerWithTimeInterval:0.2
                                                      repeats:NO
                                                        block:^(NSTimer*) {
                                                          [NSApp stopModalWithCode:response];
                                                          // Looked at only after the next event.
                                                          [NSApp postEvent:anyEvent() atStart:YES];
                                                        }];
        [NSRunLoop.mainRunLoop addTimer:timer forMode:NSModalPanelRunLoopMode];
    }
    static void press(int button) { answer(NSAlertFirstButtonReturn + button); }
    static void closeWindow() { answer(NSModalResponseAbort); }
};

struct MacAppBundleRig {
    MacAppBundle real;
    AppBundle& bundle() { return real; }
};

/// In a folder of its own.
struct MacBundleFilesRig {
    QTemporaryDir folder;
    MacBundleFiles real{folder.path()};

    MacBundleFilesRig() {
        QDir(folder.path()).mkdir(QStringLiteral("from"));
        QDir(folder.path()).mkdir(QStringLiteral("to"));
    }
    BundleFiles& files() { return real; }
    void write(const QString& path, const QByteArray& bytes) {
        QFile file(folder.path() + path);
        EXPECT_TRUE(QDir().mkpath(QFileInfo(file).path()));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    std::optional<QByteArray> read(const QString& path) {
        QFile file(folder.path() + path);
        return file.open(QIODevice::ReadOnly) ? std::optional(file.readAll()) : std::nullopt;
    }
};

struct MacDiskImageToolRig {
    StandInDiskImageTool system;
    MacDiskImageTool real{system.program()};

    DiskImageTool& tool() { return real; }
    void attach(const AttachedImage& image) { system.attach(image); }
    void breakTool() { system.takeAway(); }
};

} // namespace

INSTANTIATE_TYPED_TEST_SUITE_P(Mac, AlertContract, MacAlertRig);
INSTANTIATE_TYPED_TEST_SUITE_P(Mac, AppBundleContract, MacAppBundleRig);
INSTANTIATE_TYPED_TEST_SUITE_P(Mac, BundleFilesContract, MacBundleFilesRig);
INSTANTIATE_TYPED_TEST_SUITE_P(Mac, DiskImageToolContract, MacDiskImageToolRig);

TEST(MacDiskImageTool, WhatIsOfAnotherKindIsLeftOut) {
    StandInDiskImageTool system;
    MacDiskImageTool tool(system.program());
    const auto images = [&](const QByteArray& plist) {
        system.report("<plist version=\"1.0\">" + plist + "</plist>");
        return tool.attachedImages();
    };
    EXPECT_EQ(images("<array/>").value(), QList<AttachedImage>());
    EXPECT_EQ(images("<dict><key>images</key><string>none</string></dict>").value(), QList<AttachedImage>());
    EXPECT_EQ(images("<dict><key>images</key><array><dict><key>image-path</key><integer>1</integer>"
                     "<key>system-entities</key><array><string>x</string><dict><key>mount-point</key><string>/Volumes/A"
                     "</string></dict></array></dict></array></dict>")
                  .value(),
              (QList{AttachedImage{.imagePath = std::nullopt, .mountPoints = {QStringLiteral("/Volumes/A")}}}));
    system.report("no list at all <");
    EXPECT_FALSE(tool.attachedImages());
}

} // namespace zamber::macos
