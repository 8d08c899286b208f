// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <AppKit/Applications.h>
#include <AppKit/Drawing.h>
#include <AppKit/Menus.h>
#include <AppKit/Services.h>
#include <AppKit/Views.h>
