// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/wayland/SwayWindowSystem.h"

#include "platform/wayland/OwnWindows.h"
#include "platform/wayland/SwayConnection.h"

#include <QExposeEvent>
#include <QGuiApplication>
#include <QScreen>

#include <algorithm>
#include <chrono>

namespace zamber::wayland {

using namespace Qt::StringLiterals;

namespace {

/// A window that has no title of its own is given this one, by which sway knows it.
const QString UNTITLED = u"Zamber menu"_s;

/// After this long sway has mapped a window that was painted.
constexpr std::chrono::milliseconds TIME_TO_BE_MAPPED{60};

/// How often sway is asked to move a window that it may not have mapped yet, and how many times at most.
constexpr std::chrono::milliseconds LOOK_INTERVAL{10};
constexpr int MOST_LOOKS = 50;

/// The window in the words of sway's criteria.
QByteArray criteriaOf(const QWindow& window) {
    return "[app_id=\"^app[.]zamber[.]Zamber$\" title=\"^" + window.title().toUtf8() + "$\"]";
}

QByteArray moveTo(QPoint place) {
    return "move absolute position " + QByteArray::number(place.x()) + " px " + QByteArray::number(place.y()) + " px";
}

} // namespace

SwayWindowSystem::SwayWindowSystem(SwayConnection& sway, Scheduler& scheduler)
    : m_sway(sway)
    , m_scheduler(scheduler) {
    connect(&m_sway, &SwayConnection::reloaded, this, [this] {
        m_announced.clear();
        m_lastAnnounced.clear();
    });
}

std::optional<QRect> SwayWindowSystem::freeArea(const QScreen& screen) const {
    const auto workspaces = m_sway.visibleWorkspaces();
    const auto found = std::ranges::find(workspaces, screen.name(), &SwayConnection::Workspace::output);
    return found != workspaces.end() ? found->rectangle : screen.availableGeometry();
}

const QScreen& SwayWindowSystem::currentScreen() const {
    const auto workspaces = m_sway.visibleWorkspaces();
    const auto current = std::ranges::find(workspaces, true, &SwayConnection::Workspace::isFocused);
    if (current != workspaces.end()) {
        const auto screens = QGuiApplication::screens();
        const auto screen = std::ranges::find(screens, current->output, &QScreen::name);
        if (screen != screens.end()) {
            return **screen;
        }
    }
    return *QGuiApplication::primaryScreen();
}

void SwayWindowSystem::place(WId id, const QRect& rectangle) {
    QWindow* const window = ownwindows::find(id);
    if (window == nullptr) {
        return;
    }
    if (window->title().isEmpty()) {
        window->setTitle(UNTITLED);
    }
    // sway tiles a window that could have another size.
    window->setMinimumSize(rectangle.size());
    window->setMaximumSize(rectangle.size());
    if (wishOf(window) == nullptr) {
        std::erase_if(m_wishes, [](const Wish& wish) { return wish.window == nullptr; });
        m_wishes.push_back({.window = window, .rectangle = {}});
        window->installEventFilter(this);
    }
    Wish& wish = *wishOf(window);
    wish.rectangle = rectangle;
    if (wish.isFulfilled) {
        fulfil(wish);
        return;
    }
    if (!window->isVisible()) {
        ownwindows::moveToScreen(*window, rectangle);
    }
    announce(wish);
}

SwayWindowSystem::Wish* SwayWindowSystem::wishOf(const QObject* window) {
    const auto found = std::ranges::find(m_wishes, window, [](const Wish& wish) { return wish.window.data(); });
    return found != m_wishes.end() ? &*found : nullptr;
}

void SwayWindowSystem::announce(Wish& wish) {
    // The rule has the window come up where it belongs. Without it, it is seen in the middle for the time of a frame.
    // sway keeps each rule for good, and of several the one that it was told last counts.
    const QByteArray window = criteriaOf(*wish.window);
    const QByteArray rule = "for_window " + window + " \"" + moveTo(wish.rectangle.topLeft()) + '"';
    if (!m_announced.contains(rule)) {
        m_announced.insert(rule);
        m_lastAnnounced.insert(window, rule);
        m_sway.run(rule);
    }
    wish.isMappedElsewhere = m_lastAnnounced.value(window) != rule;
}

bool SwayWindowSystem::fulfil(Wish& wish) {
    wish.isFulfilled = true;
    // sway gives a new window the focus only where the user is.
    const bool isThere = m_sway.run(criteriaOf(*wish.window) + ' ' + moveTo(wish.rectangle.topLeft()) +
                                    (wish.isMappedElsewhere ? ", focus" : ""));
    wish.isMappedElsewhere = wish.isMappedElsewhere && !isThere;
    return isThere;
}

void SwayWindowSystem::moveOnceMapped(const QWindow* window, int attempts) {
    Wish* const wish = wishOf(window);
    if (wish == nullptr || !window->isExposed()) {
        return;
    }
    m_qt.roundTrip();
    if (!fulfil(*wish) && attempts > 1) { // newer Qt paints a moment later
        m_scheduler.after(LOOK_INTERVAL,
                          [this, later = QPointer(window), attempts] { moveOnceMapped(later, attempts - 1); });
    }
}

void SwayWindowSystem::bringToFront(WId id) {
    ownwindows::bringToFront(id);
    QWindow* const window = ownwindows::find(id);
    if (wishOf(window) == nullptr) { // the others are looked after whenever they appear
        m_scheduler.after(TIME_TO_BE_MAPPED,
                          [this, later = QPointer(window)] { takeFocusFromFullScreen(later, MOST_LOOKS); });
    }
}

void SwayWindowSystem::takeFocusFromFullScreen(const QPointer<QWindow>& window, int attempts) {
    // Any other window that has the focus by now has it since the user wanted it so.
    if (window == nullptr || !window->isVisible() || !m_sway.isFullScreenFocused()) {
        return;
    }
    if (!m_sway.run(criteriaOf(*window) + " focus") && attempts > 1) {
        m_scheduler.after(LOOK_INTERVAL, [this, window, attempts] { takeFocusFromFullScreen(window, attempts - 1); });
    }
}

void SwayWindowSystem::useActivationToken(const QString& token) {
    ownwindows::useActivationToken(token);
}

bool SwayWindowSystem::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Expose) {
        handleExposure(*static_cast<QWindow*>(watched));
    }
    return false;
}

void SwayWindowSystem::handleExposure(QWindow& window) {
    Wish* const wish = wishOf(&window);
    if (wish == nullptr) {
        return;
    }
    if (!window.isExposed()) {
        wish->isFulfilled = false;
    } else if (!wish->isFulfilled) {
        // The window is there for the compositor when it has been painted, and when that has arrived. sway gives it the
        // focus then, but not over a window in full screen, where the new one is not even seen.
        m_scheduler.soon([this, later = QPointer(&window)] { moveOnceMapped(later, MOST_LOOKS); });
        m_scheduler.after(TIME_TO_BE_MAPPED, [this, later = QPointer(&window)] { takeFocusFromFullScreen(later, 1); });
    }
}

} // namespace zamber::wayland
