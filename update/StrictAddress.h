// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QUrl>

#include <optional>

namespace zamber::update {

/// The text as an absolute address, if RFC 3986 calls it one as it stands; nothing is encoded to make it so.
std::optional<QUrl> strictAddress(const QString& text);

} // namespace zamber::update
