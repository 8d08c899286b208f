// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/macos/KeyHandlers.h"

#include "tests/contracts/KeyMonitorContract.h"

namespace zamber::macos {

namespace {

/// The handlers as a monitor of their own: the system's part is to bring the presses.
struct KeyHandlersRig final : KeyMonitor {
    KeyHandlers handlers;

    KeyMonitor& monitor() { return *this; }
    KeyDisposition press(HardwareKey key) { return handlers.ask(key); }
    Token addHandler(Handler handler) override { return handlers.add(std::move(handler)); }
    void removeHandler(Token token) override { handlers.remove(token); }
};

} // namespace

INSTANTIATE_TYPED_TEST_SUITE_P(Mac, KeyMonitorContract, KeyHandlersRig);

TEST(KeyHandlers, AreEmptyUntilOneComesAndWhenTheLastHasGone) {
    KeyHandlers handlers;
    EXPECT_TRUE(handlers.isEmpty());
    const auto first = handlers.add([](HardwareKey) { return KeyDisposition::PassOn; });
    const auto second = handlers.add([](HardwareKey) { return KeyDisposition::PassOn; });
    handlers.remove(first);
    EXPECT_FALSE(handlers.isEmpty());
    handlers.remove(second);
    EXPECT_TRUE(handlers.isEmpty());
}

} // namespace zamber::macos
