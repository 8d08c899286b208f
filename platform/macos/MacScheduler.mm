// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/macos/MacScheduler.h"

#import <Foundation/Foundation.h>

#include <map>
#include <set>
#include <utility>

namespace zamber::macos {

struct MacScheduler::Timers {
    std::set<std::uint64_t> once;
    std::map<std::uint64_t, NSTimer*> repeating;
    std::uint64_t lastId = 0;
};

MacScheduler::MacScheduler()
    : m_timers(std::make_shared<Timers>()) {}

MacScheduler::~MacScheduler() {
    for (const auto& [id, timer] : m_timers->repeating) {
        [timer invalidate];
    }
}

Scheduler::Token MacScheduler::after(std::chrono::milliseconds delay, Action action) {
    const std::uint64_t id = ++m_timers->lastId;
    m_timers->once.insert(id);
    const std::weak_ptr<Timers> timers = m_timers;
    const std::chrono::nanoseconds nanoseconds = delay;
    dispatch_after(dispatch_time(DISPATCH_TIME_NOW, nanoseconds.count()), dispatch_get_main_queue(), ^{
      const std::shared_ptr<Timers> living = timers.lock();
      if (living && living->once.erase(id) > 0) {
          action();
      }
    });
    return {id};
}

Scheduler::Token MacScheduler::every(std::chrono::milliseconds interval, Action action) {
    const std::uint64_t id = ++m_timers->lastId;
    const std::chrono::duration<double> seconds = interval;
    m_timers->repeating[id] = [NSTimer scheduledTimerWithTimeInterval:seconds.count()
                                                              repeats:YES
                                                                block:^(NSTimer*) {
                                                                  // Its own copy: the action may end the timer.
                                                                  const Action run = action;
                                                                  run();
                                                                }];
    return {id};
}

void MacScheduler::invalidate(Token token) {
    m_timers->once.erase(token.id);
    if (const auto found = m_timers->repeating.find(token.id); found != m_timers->repeating.end()) {
        [found->second invalidate];
        m_timers->repeating.erase(found);
    }
}

void MacScheduler::soon(Action action) {
    dispatch_async(dispatch_get_main_queue(), ^{
      action();
    });
}

double MacScheduler::now() const {
    return NSDate.date.timeIntervalSince1970;
}

} // namespace zamber::macos
