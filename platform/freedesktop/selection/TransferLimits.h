// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <chrono>

/// How long other programs are waited for while contents are transferred, and how much is taken from them.
namespace zamber::freedesktop::selection {

/// The longest silence of an owner that is read from, before its first byte and after any other.
inline constexpr std::chrono::seconds LONGEST_OWNER_SILENCE{10};

/// The longest time that a program which reads our content may take no byte of it.
inline constexpr std::chrono::seconds LONGEST_READER_SILENCE{30};

/// The largest content that is read from an owner, in bytes. There is no limit on the time while bytes keep coming.
inline constexpr qsizetype LARGEST_CONTENT = qsizetype{1} << 30;

} // namespace zamber::freedesktop::selection
