// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

namespace zamber {

/// The largest image that is decoded, in mebibytes of pixels: 16384 × 16384 of them. An 8K screen takes 133, more than
/// Qt's own bound of 128; this one still stops a bomb of a few bytes.
constexpr int LARGEST_IMAGE_MEGABYTES = 1024;

/// Has Qt decode images up to that. The bound is the whole program's and Qt reads it without a lock, so it is set
/// before there is a second thread; further calls do nothing.
void raiseImageLimit();

} // namespace zamber
