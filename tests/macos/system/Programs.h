// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace zamber::system {

bool isReducedMotion(); ///< what the user has set

/// The descriptors that a program begins with; -1 is ours.
struct Streams {
    int input = -1;
    int output = -1;
    int error = -1;
};

/// Starts a program, which is at work until it has ended; its process, or minus the error's number.
int start(const std::string& path, const std::vector<std::string>& arguments, const Streams& streams = {});

/// Whether a program that was started here, or a thread, still does something that the tests may wait for.
bool isAnotherAtWork();

/// On a thread of its own, which is at work until then.
void doElsewhere(std::function<void()> action);

} // namespace zamber::system
