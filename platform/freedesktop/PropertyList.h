// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>
#include <QVariant>

#include <expected>

namespace zamber::freedesktop {

/// Reads a property list in its XML form. Dictionaries are QVariantMap, arrays QVariantList, and strings, integers,
/// reals, booleans, dates and data what one expects; the error says what is wrong with the bytes, and where.
std::expected<QVariant, QString> readPropertyList(const QByteArray& bytes);

} // namespace zamber::freedesktop
