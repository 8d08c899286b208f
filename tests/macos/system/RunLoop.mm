// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "RunLoop.h"

#include "Programs.h"
#include "Values.h"

#include "tests/macos/System.h"
#include "tests/macos/runtime/Runtime.h"

#include <QCoreApplication>
#include <QThread>
#include <QTimer>

#import <AppKit/AppKit.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <mutex>
#include <set>
#include <thread>
#include <vector>

// The rules:
// - The main queue is serial, so that no block of it begins while another one runs, not even in a run loop within that
//   block (dispatch/queue.h: serial queues "execute blocks one at a time in FIFO order"). An alert that is run by a
//   block of the main queue keeps all others waiting.
// - It is served in the common modes, to which those of alerts and menus belong (CFRunLoop.h, NSRunLoop's
//   documentation of NSRunLoopCommonModes, "Modal panels", "Event tracking"); a timer runs in the modes it was added
//   to, by scheduledTimer… the default one alone.
// - What a turn autoreleases is let go at its end; so is what Qt's own events do (qcocoaeventdispatcher.mm,
//   processEvents).

// The clock of timers and of the main queue is turned by the run loop itself, a millisecond for each of its waits, so
// that no test depends on how fast the machine is. A wait is over at once, except for other programs and threads, which
// go by the machine's time. The wall clock is the machine's.

namespace zamber::system {

namespace {

constexpr std::chrono::milliseconds TIMER{1};
constexpr std::chrono::nanoseconds WAIT{1'001'000}; ///< no wait is exact

std::atomic<std::int64_t> elapsedNanoseconds;

void pass(std::chrono::nanoseconds time) {
    elapsedNanoseconds += time.count();
}

struct Clock {
    using time_point = std::chrono::steady_clock::time_point;
    using duration = time_point::duration;

    static time_point now() { return time_point(std::chrono::nanoseconds(elapsedNanoseconds)); }
};

} // namespace

void skip(std::chrono::milliseconds time) {
    pass(time);
}

} // namespace zamber::system

using zamber::system::Clock;

NSRunLoopMode const NSDefaultRunLoopMode = @"default";
NSRunLoopMode const NSRunLoopCommonModes = @"common";
NSRunLoopMode const NSModalPanelRunLoopMode = @"modal";
NSRunLoopMode const NSEventTrackingRunLoopMode = @"tracking";

namespace {

struct DueBlock {
    Clock::time_point when;
    std::uint64_t number;
    dispatch_block_t block;

    bool operator<(const DueBlock& other) const { return std::tie(when, number) < std::tie(other.when, other.number); }
};

std::mutex queueMutex;
bool isInMainQueue = false;

std::set<DueBlock>& mainQueue() {
    static auto* queue = new std::set<DueBlock>;
    return *queue;
}

void enqueue(Clock::time_point when, dispatch_block_t block) {
    static std::uint64_t last = 0;
    const std::lock_guard lock(queueMutex);
    mainQueue().insert({when, ++last, block});
}

dispatch_block_t takeDueBlock() {
    const std::lock_guard lock(queueMutex);
    auto& queue = mainQueue();
    if (queue.empty() || queue.begin()->when > Clock::now()) {
        return nil;
    }
    const dispatch_block_t block = queue.begin()->block;
    queue.erase(queue.begin());
    return block;
}

void serveMainQueue() {
    if (isInMainQueue) {
        return;
    }
    isInMainQueue = true;
    // Those that are due now; what they add themselves waits for the next turn.
    std::vector<dispatch_block_t> due;
    while (const dispatch_block_t block = takeDueBlock()) {
        due.push_back(block);
    }
    for (std::size_t i = 0; i < due.size(); ++i) {
        @autoreleasepool {
            due[i]();
            due[i] = nil;
        }
    }
    isInMainQueue = false;
}

std::vector<void (*)()>& steps() {
    static auto* all = new std::vector<void (*)()>;
    return *all;
}

struct Later {
    Clock::time_point when;
    std::function<void()> action;
};

std::vector<Later>& laterActions() {
    static auto* all = new std::vector<Later>;
    return *all;
}

void runLaterActions() {
    std::vector<Later> due;
    auto& all = laterActions();
    const Clock::time_point now = Clock::now();
    std::ranges::copy_if(all, std::back_inserter(due), [now](const Later& each) { return each.when <= now; });
    std::erase_if(all, [now](const Later& each) { return each.when <= now; });
    for (const Later& each : due) {
        each.action();
    }
}

const std::thread::id mainThread = std::this_thread::get_id();

} // namespace

struct ZamberQueue {};

extern "C" {
dispatch_queue_t dispatch_get_main_queue() {
    static ZamberQueue queue;
    return &queue;
}
void dispatch_async(dispatch_queue_t, dispatch_block_t block) {
    enqueue(Clock::now(), block);
}
dispatch_time_t dispatch_time(dispatch_time_t, int64_t nanoseconds) {
    const auto when = Clock::now() + std::chrono::nanoseconds(nanoseconds);
    return static_cast<dispatch_time_t>(std::chrono::nanoseconds(when.time_since_epoch()).count());
}
void dispatch_after(dispatch_time_t when, dispatch_queue_t, dispatch_block_t block) {
    enqueue(Clock::time_point(std::chrono::nanoseconds(when)), block);
}
}

@implementation NSThread
+ (BOOL)isMainThread {
    return std::this_thread::get_id() == mainThread;
}
@end

@implementation NSProcessInfo
+ (NSProcessInfo*)processInfo {
    static NSProcessInfo* const only = [NSProcessInfo new];
    return only;
}
- (NSTimeInterval)systemUptime {
    return std::chrono::duration<double>(Clock::now().time_since_epoch()).count();
}
@end

@implementation NSDate {
    NSTimeInterval _since1970;
}
+ (NSDate*)date {
    return [self dateWithTimeIntervalSinceNow:0];
}
+ (NSDate*)dateWithTimeIntervalSinceNow:(NSTimeInterval)seconds {
    NSDate* const date = [NSDate new];
    date->_since1970 =
        seconds + std::chrono::duration<double>(std::chrono::system_clock::now().time_since_epoch()).count();
    return date;
}
- (NSTimeInterval)timeIntervalSince1970 {
    return _since1970;
}
@end

@interface NSTimer () {
@public
    Clock::time_point _next;
    std::chrono::duration<double> _interval;
    BOOL _repeats;
    BOOL _isValid;
    void (^_block)(NSTimer*);
    QString _mode;
}
@end

namespace {

std::vector<NSTimer*>& timers() {
    static auto* all = new std::vector<NSTimer*>;
    return *all;
}

void fireTimers(const QString& mode) {
    const std::vector<NSTimer*> all = timers();
    for (NSTimer* const& timer : all) {
        const bool isOfMode = timer->_mode == mode || timer->_mode == QStringLiteral("common");
        if (!timer->_isValid || !isOfMode || timer->_next > Clock::now()) {
            continue;
        }
        @autoreleasepool {
            void (^const block)(NSTimer*) = timer->_block;
            if (timer->_repeats) {
                timer->_next = Clock::now() + std::chrono::duration_cast<Clock::duration>(timer->_interval);
            } else {
                [timer invalidate];
            }
            block(timer);
        }
    }
}

} // namespace

@implementation NSTimer
+ (NSTimer*)timerWithTimeInterval:(NSTimeInterval)interval repeats:(BOOL)repeats block:(void (^)(NSTimer*))block {
    NSTimer* const timer = [NSTimer new];
    timer->_interval = std::chrono::duration<double>(interval);
    timer->_next = Clock::now() + std::chrono::duration_cast<Clock::duration>(timer->_interval);
    timer->_repeats = repeats;
    timer->_isValid = YES;
    timer->_block = block;
    return timer;
}
+ (NSTimer*)scheduledTimerWithTimeInterval:(NSTimeInterval)interval
                                   repeats:(BOOL)repeats
                                     block:(void (^)(NSTimer*))block {
    NSTimer* const timer = [self timerWithTimeInterval:interval repeats:repeats block:block];
    zamber::system::note("NSTimer scheduledTimerWithTimeInterval: %g repeats: %d", interval, repeats);
    [NSRunLoop.mainRunLoop addTimer:timer forMode:NSDefaultRunLoopMode];
    return timer;
}
- (void)invalidate {
    NSTimer* const kept = self; // the loop's reference may be the last but this one
    kept->_isValid = NO;
    kept->_block = nil;
    std::erase(timers(), kept);
}
@end

@implementation NSRunLoop
+ (NSRunLoop*)mainRunLoop {
    static NSRunLoop* const only = [NSRunLoop new];
    return only;
}
+ (NSRunLoop*)currentRunLoop {
    return self.mainRunLoop;
}
- (void)addTimer:(NSTimer*)timer forMode:(NSRunLoopMode)mode {
    timer->_mode = mode.qtText;
    timers().push_back(timer);
}
- (BOOL)runMode:(NSRunLoopMode)mode beforeDate:(NSDate*)limit {
    zamber::system::turn(mode.qtText);
    if (zamber::system::isAnotherAtWork()) {
        std::this_thread::sleep_for(zamber::system::WAIT);
    }
    zamber::system::pass(zamber::system::WAIT);
    return YES;
}
@end

namespace zamber::system {

namespace {

int turnsWithin = 0; ///< how many turns run, each within the one before

bool isInQtsLoop() {
    return QThread::currentThread()->loopLevel() > 0;
}

} // namespace

void turn(const QString& mode) {
    if (turnsWithin == 0) {
        runtime::drainOutermostPool();
    }
    ++turnsWithin;
    @autoreleasepool {
        fireTimers(mode);
        serveMainQueue();
        runLaterActions();
        const auto all = steps();
        for (void (*const step)() : all) {
            step();
        }
    }
    --turnsWithin;
}

void later(int milliseconds, std::function<void()> action) {
    laterActions().push_back({Clock::now() + std::chrono::milliseconds(milliseconds), std::move(action)});
}

void addToEachTurn(void (*step)()) {
    steps().push_back(step);
}

void runUntil(NSRunLoopMode mode, const std::function<bool()>& condition) {
    const auto patience = Clock::now() + std::chrono::seconds(20);
    while (!condition()) {
        if (Clock::now() > patience) {
            std::fprintf(stderr, "nobody ends the run loop in mode %s\n", words(mode).c_str());
            std::abort();
        }
        if (QCoreApplication::instance() != nullptr) {
            QCoreApplication::processEvents(QEventLoop::AllEvents);
        }
        [NSRunLoop.mainRunLoop runMode:mode beforeDate:NSDate.date];
    }
}

namespace {

/// Qt's loop on a Mac is the main run loop.
void joinLoops() {
    auto* const timer = new QTimer(QCoreApplication::instance());
    QObject::connect(timer, &QTimer::timeout, timer, [] {
        pass(WAIT);
        turn();
    });
    timer->start(TIMER);
    runtime::setOutermostPool(isInQtsLoop);
}
Q_COREAPP_STARTUP_FUNCTION(joinLoops)

} // namespace

} // namespace zamber::system
