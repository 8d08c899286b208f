// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

// The protocol's header names a member by a word of C++, and hiding that word is warned of everywhere but in a system
// header.
#pragma GCC system_header
#define explicit explicit_
#include <xcb/xkb.h>
#undef explicit
