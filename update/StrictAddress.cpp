// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "update/StrictAddress.h"

#include <QRegularExpression>

namespace zamber::update {

std::optional<QUrl> strictAddress(const QString& text) {
    // Brackets belong around a numeric host alone; that they stand nowhere else, the parser checks.
    static const QRegularExpression allowed(
        QRegularExpression::anchoredPattern(uR"((?:[A-Za-z0-9\-._~:/?#\[\]@!$&'()*+,;=]|%[0-9A-Fa-f]{2})*)"));
    if (!allowed.match(text).hasMatch()) {
        return std::nullopt;
    }
    const QUrl address(text, QUrl::StrictMode);
    return address.isValid() && !address.isRelative() ? std::optional(address) : std::nullopt;
}

} // namespace zamber::update
