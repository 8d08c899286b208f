// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <ostream>

namespace zamber {

/// A row of a table of conversions. A failure is reported under its name, since its bytes need not be text.
struct NamedRow {
    const char* name;
    QByteArray from;
    QByteArray to;
};

/// How GoogleTest prints it.
inline void PrintTo(const NamedRow& row, std::ostream* out) {
    *out << row.name;
}

} // namespace zamber
