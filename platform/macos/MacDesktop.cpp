// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/macos/MacDesktop.h"

#include "platform/macos/AutoreleasePool.h"
#include "platform/macos/MacAccessibilityTrust.h"
#include "platform/macos/MacAlert.h"
#include "platform/macos/MacAppBundle.h"
#include "platform/macos/MacAppearance.h"
#include "platform/macos/MacApplication.h"
#include "platform/macos/MacApplicationDelegate.h"
#include "platform/macos/MacApplicationSupport.h"
#include "platform/macos/MacBundleFiles.h"
#include "platform/macos/MacDiskImageTool.h"
#include "platform/macos/MacHotKeyCenter.h"
#include "platform/macos/MacKeyMonitor.h"
#include "platform/macos/MacKeystrokePoster.h"
#include "platform/macos/MacLinkDetector.h"
#include "platform/macos/MacLoginItem.h"
#include "platform/macos/MacPasteboard.h"
#include "platform/macos/MacPopover.h"
#include "platform/macos/MacScheduler.h"
#include "platform/macos/MacStatusItem.h"
#include "platform/macos/MacSymbols.h"
#include "platform/macos/MacSystemSound.h"
#include "platform/macos/MacUserDefaults.h"
#include "platform/macos/MacWindows.h"
#include "platform/macos/MacWorkspace.h"
#include "platform/web/QtWebClient.h"

#include <utility>

namespace zamber::macos {

struct MacDesktop::Adapters {
    MacScheduler scheduler;
    MacUserDefaults userDefaults;
    MacPasteboard pasteboard;
    MacHotKeyCenter hotKeys;
    MacWorkspace workspace;
    MacKeystrokePoster keystrokes;
    MacAccessibilityTrust trust;
    MacApplication application;
    MacKeyMonitor keyMonitor;
    MacAppearance appearance;
    MacSymbols symbols;
    MacSystemSound sounds;
    MacLoginItem loginItem;
    MacLinkDetector links;
    MacAppBundle bundle;
    MacAlert alert;
    MacBundleFiles files;
    MacDiskImageTool images;
    MacStatusItem statusItem;
    MacPopover popover;
    web::QtWebClient web{scheduler};
    FloatingLevel floatingLevel;
};

MacDesktop::StartUp::StartUp()
    : m_pool(openAutoreleasePool()) {}

MacDesktop::StartUp::~StartUp() {
    closeAutoreleasePool(m_pool);
}

std::expected<void, std::string> MacDesktop::prepare() {
    // Qt would make the program a regular one and activate it, and the front application would be this one.
    qputenv("QT_MAC_DISABLE_FOREGROUND_APPLICATION_TRANSFORM", "1");
    installApplicationDelegate();
    return {};
}

std::expected<std::unique_ptr<MacDesktop>, std::string> MacDesktop::create() {
    return std::unique_ptr<MacDesktop>(new MacDesktop(std::make_unique<Adapters>()));
}

std::filesystem::path MacDesktop::historyFile() {
    return applicationSupportFolder() / "Zamber" / "clipboard_history.json";
}

MacDesktop::MacDesktop(std::unique_ptr<Adapters> adapters)
    : m_adapters(std::move(adapters)) {
    m_adapters->web.loadTlsSoon();
}

MacDesktop::~MacDesktop() = default;

void MacDesktop::setResponder(const QString& action, std::function<void()> responder) {
    respondToAction(action, std::move(responder));
}

void MacDesktop::bringToFront(WId window) {
    bringWindowToFront(window);
}

Desktop MacDesktop::ports() {
    Desktop ports = portsOf(*m_adapters);
    ports.diskImages.emplace(DiskImages{.files = m_adapters->files, .tool = m_adapters->images});
    return ports;
}

} // namespace zamber::macos
