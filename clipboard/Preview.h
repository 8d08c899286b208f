// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <string_view>

namespace zamber::clipboard {

/// What a row shows of a text (UTF-8): trimmed, its first 150 user-perceived characters, and "…" if there are more.
QString textPreview(std::string_view utf8);

/// What a row shows of a sensitive text when the user hides those, whatever the text's length.
QString maskedPreview();

} // namespace zamber::clipboard
