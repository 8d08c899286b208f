// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <CoreGraphics/CoreGraphics.h>

extern "C" Boolean AXIsProcessTrusted();
