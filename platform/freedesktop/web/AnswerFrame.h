// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/WebClient.h"

#include <QByteArray>

#include <optional>

namespace zamber::freedesktop::web {

/// How the process that makes a request hands the answer to the one that has started it: "body 12\n" and the twelve
/// bytes of the body, or "failure 9\n" and why there is none, in UTF-8; then its output ends.
QByteArray framed(const WebClient::Answer& answer);

/// Nothing where it is not just that.
std::optional<WebClient::Answer> unframed(const QByteArray& output);

/// No output that is right is longer.
inline constexpr qint64 LONGEST_FRAME_BYTES = WebClient::LARGEST_BODY_BYTES + 16;

} // namespace zamber::freedesktop::web
