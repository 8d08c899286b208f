// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT

// A precompiled header needs a target with a source; nothing is wanted of this one.
