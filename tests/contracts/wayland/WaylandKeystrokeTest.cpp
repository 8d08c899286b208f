// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/QtScheduler.h"
#include "platform/wayland/Connection.h"
#include "platform/wayland/ToplevelWorkspace.h"
#include "platform/wayland/Toplevels.h"
#include "platform/wayland/VirtualKeyboard.h"
#include "platform/wayland/VirtualKeystrokePoster.h"
#include "platform/wayland/WaylandPasteboard.h"
#include "tests/contracts/KeystrokePosterContract.h"
#include "tests/contracts/ServedClipboardContract.h"
#include "tests/contracts/wayland/WaylandPartner.h"

#include <algorithm>
#include <map>

namespace zamber::wayland {

namespace {

struct WaylandKeystrokePosterRig {
    using Standing = WaylandPasteboard::Standing;

    freedesktop::QtScheduler scheduler;
    WaylandPartner partner;
    std::unique_ptr<Connection> clipboardConnection = *Connection::open();
    std::unique_ptr<Connection> inputConnection = *Connection::open();
    WaylandPasteboard pasteboard{*clipboardConnection};
    std::unique_ptr<Toplevels> toplevels = Toplevels::create(*inputConnection);
    std::unique_ptr<VirtualKeyboard> keyboard = VirtualKeyboard::create(*inputConnection);
    ToplevelWorkspace workspace{*toplevels, [](const QString& id) { return std::optional(id); }};
    VirtualKeystrokePoster adapter{*keyboard, *toplevels, pasteboard, scheduler};
    std::map<std::uint64_t, std::unique_ptr<WaylandEditor>> editors;

    KeystrokePoster& poster() { return adapter; }
    static bool waitUntil(const std::function<bool()>& condition) { return WaylandPartner::waitUntil(condition); }

    RunningApplication openApplication() {
        const auto before = workspace.frontmostApplication();
        auto editor = std::make_unique<WaylandEditor>();
        EXPECT_TRUE(WaylandPartner::waitUntil(
            [&] {
                const auto front = workspace.frontmostApplication();
                return front && (!before || front->handle != before->handle) && front->localizedName == u"editor";
            },
            10'000));
        const RunningApplication opened = workspace.frontmostApplication().value_or(RunningApplication());
        editors[opened.handle] = std::move(editor);
        return opened;
    }

    void closeApplication(const RunningApplication& application) {
        editors.erase(application.handle);
        EXPECT_TRUE(waitUntil([&] { return !toplevels->isOpen(application.handle); }));
    }

    int writeClipboard() {
        pasteboard.clearContents();
        pasteboard.setString("ours");
        return pasteboard.changeCount();
    }

    void copyElsewhere() {
        const int written = pasteboard.changeCount();
        EXPECT_TRUE(waitUntil([&] { return pasteboard.standingOf(written) == Standing::Offered; }));
        partner.copy({{"text/plain;charset=utf-8", "theirs"}});
        EXPECT_TRUE(waitUntil([&] { return pasteboard.standingOf(written) == Standing::Lost; }));
    }

    void settle() {
        // Keys arrive in their order: once this one has come, none is under way.
        keyboard->type(freedesktop::selection::PasteKeystroke::ShiftInsert);
        EXPECT_TRUE(waitUntil([this] {
            return std::ranges::any_of(editors, [](const auto& entry) { return entry.second->hasReceivedInsert(); });
        }));
    }

    int pastesReceived(const RunningApplication& application) { return editors[application.handle]->pastesReceived(); }
};

} // namespace

INSTANTIATE_TYPED_TEST_SUITE_P(Wayland, KeystrokePosterContract, WaylandKeystrokePosterRig);
INSTANTIATE_TYPED_TEST_SUITE_P(Wayland, ServedClipboardContract, WaylandKeystrokePosterRig);

} // namespace zamber::wayland
