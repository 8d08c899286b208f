// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "Programs.h"
#include "RunLoop.h"
#include "Values.h"

#include "tests/macos/System.h"

#import <Foundation/Foundation.h>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <csignal>
#include <cstring>
#include <mutex>
#include <set>
#include <thread>
#include <utility>

// The rules (NSTask.h and its documentation): what is not set is inherited; waitUntilExit turns the run loop in the
// default mode until the process has ended.

extern char** environ; // NOLINT: the C library's

namespace zamber::system {

namespace {

std::atomic<int> threadsAtWork;

std::set<pid_t>& processesAtWork() {
    static auto* all = new std::set<pid_t>; // of the main thread and of those that start programs
    return *all;
}
std::mutex processesMutex;

} // namespace

bool isAnotherAtWork() {
    const std::lock_guard lock(processesMutex);
    std::erase_if(processesAtWork(), [](pid_t process) {
        siginfo_t ended{};
        return waitid(P_PID, static_cast<id_t>(process), &ended, WEXITED | WNOHANG | WNOWAIT) != 0 || ended.si_pid != 0;
    });
    return threadsAtWork > 0 || !processesAtWork().empty();
}

void doElsewhere(std::function<void()> action) {
    ++threadsAtWork;
    std::thread([action = std::move(action)] {
        action();
        --threadsAtWork;
    }).detach();
}

void writeDefaultsElsewhere(const QString& domain, const QString& key, const QString& value); // Defaults.mm

int start(const std::string& path, const std::vector<std::string>& arguments, const Streams& streams) {
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    const int wanted[] = {streams.input, streams.output, streams.error};
    for (int stream = 0; stream < 3; ++stream) {
        if (wanted[stream] >= 0) {
            posix_spawn_file_actions_adddup2(&actions, wanted[stream], stream);
        }
    }
    std::vector<char*> words{const_cast<char*>(path.c_str())};
    for (const std::string& argument : arguments) {
        words.push_back(const_cast<char*>(argument.c_str()));
    }
    words.push_back(nullptr);
    pid_t process = 0;
    const int failure = posix_spawn(&process, path.c_str(), &actions, nullptr, words.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (failure != 0) {
        return -failure;
    }
    const std::lock_guard lock(processesMutex);
    processesAtWork().insert(process);
    return process;
}

} // namespace zamber::system

using namespace zamber::system;

@interface NSFileHandle () {
@public
    int _descriptor;
}
@end

@implementation NSFileHandle
+ (NSFileHandle*)fileHandleWithNullDevice {
    NSFileHandle* const handle = [NSFileHandle new];
    handle->_descriptor = open("/dev/null", O_RDWR | O_CLOEXEC);
    return handle;
}
- (void)dealloc {
    close(_descriptor);
}
- (NSData*)readDataToEndOfFile {
    note("NSFileHandle readDataToEndOfFile");
    QByteArray all;
    char buffer[4096];
    for (ssize_t count = 0; (count = read(_descriptor, buffer, sizeof buffer)) > 0;) {
        all.append(buffer, count);
    }
    return [NSData dataWithBytes:all.constData() length:static_cast<NSUInteger>(all.size())];
}
@end

@implementation NSPipe {
@public
    NSFileHandle* _reading;
    int _writing;
}
+ (NSPipe*)pipe {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) {
        return nil;
    }
    NSPipe* const made = [NSPipe new];
    made->_reading = [NSFileHandle new];
    made->_reading->_descriptor = ends[0];
    made->_writing = ends[1];
    return made;
}
- (NSFileHandle*)fileHandleForReading {
    return _reading;
}
/// Ours goes once the task has its own: else reading would never end.
- (void)closeWriting {
    close(_writing);
    _writing = -1;
}
@end

@implementation NSTask {
    int _process;
    int _status;
}
static int writingEnd(id stream) {
    if ([stream isKindOfClass:NSPipe.class]) {
        return static_cast<NSPipe*>(stream)->_writing;
    }
    return stream != nil ? static_cast<NSFileHandle*>(stream)->_descriptor : -1;
}
- (BOOL)launchAndReturnError:(NSError**)failure {
    std::vector<std::string> arguments;
    for (NSString* const argument in self.arguments) {
        arguments.push_back(argument.UTF8String);
    }
    const std::string path = self.executableURL.path.UTF8String;
    note("NSTask launchAndReturnError:");
    if (path == "/usr/bin/defaults") {
        const auto word = [&](std::size_t index) { return QString::fromStdString(arguments.at(index)); };
        writeDefaultsElsewhere(word(1), word(2), word(4)); // write DOMAIN KEY -string VALUE
        return YES;
    }
    _process = start(path, arguments,
                     {writingEnd(self.standardInput), writingEnd(self.standardOutput), writingEnd(self.standardError)});
    if ([self.standardOutput isKindOfClass:NSPipe.class]) {
        [self.standardOutput closeWriting];
    }
    if (_process < 0 && failure != nullptr) {
        *failure = error("NSPOSIXErrorDomain", -_process, QString::fromLocal8Bit(std::strerror(-_process)));
    }
    return _process >= 0;
}
- (void)waitUntilExit {
    note("NSTask waitUntilExit");
    if (_process > 0) {
        runUntil(NSDefaultRunLoopMode, [self] { return waitpid(self->_process, &self->_status, WNOHANG) != 0; });
    }
}
- (int)terminationStatus {
    return WEXITSTATUS(_status);
}
@end
