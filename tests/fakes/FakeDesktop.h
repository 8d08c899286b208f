// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "tests/fakes/FakeAccessibilityTrust.h"
#include "tests/fakes/FakeAlert.h"
#include "tests/fakes/FakeAppBundle.h"
#include "tests/fakes/FakeAppearance.h"
#include "tests/fakes/FakeApplication.h"
#include "tests/fakes/FakeHotKeyCenter.h"
#include "tests/fakes/FakeKeyMonitor.h"
#include "tests/fakes/FakeKeystrokePoster.h"
#include "tests/fakes/FakeLinkDetector.h"
#include "tests/fakes/FakeLoginItem.h"
#include "tests/fakes/FakePasteboard.h"
#include "tests/fakes/FakePopoverHost.h"
#include "tests/fakes/FakeScheduler.h"
#include "tests/fakes/FakeStatusItem.h"
#include "tests/fakes/FakeSymbols.h"
#include "tests/fakes/FakeSystemSound.h"
#include "tests/fakes/FakeUserDefaults.h"
#include "tests/fakes/FakeWebClient.h"
#include "tests/fakes/FakeWorkspace.h"

namespace zamber {

/// A fake for every port, named so that portsOf() makes a Desktop of them. What happens on the ports that keep a
/// journal is in one, in the order in which it happened.
struct FakeDesktop {
    Journal journal;
    FakeApplication application{journal};
    FakePasteboard pasteboard;
    FakeWorkspace workspace{journal};
    FakeHotKeyCenter hotKeys{journal};
    FakeKeystrokePoster keystrokes{journal, workspace};
    FakeKeyMonitor keyMonitor;
    FakeAccessibilityTrust trust;
    FakeStatusItem statusItem{journal};
    FakePopoverHost popover{journal};
    FakeAppearance appearance;
    FakeSymbols symbols;
    FakeSystemSound sounds{journal};
    FakeLoginItem loginItem;
    FakeLinkDetector links;
    FakeAppBundle bundle;
    FakeAlert alert{journal};
    FakeUserDefaults userDefaults{journal};
    FakeScheduler scheduler;
    FakeWebClient web;
};

} // namespace zamber
