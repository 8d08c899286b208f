// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/BuiltAppBundle.h"

#include <QCoreApplication>

namespace zamber::freedesktop {

QString BuiltAppBundle::path() const {
    return QCoreApplication::applicationFilePath();
}

std::optional<QString> BuiltAppBundle::version() const {
    return QStringLiteral(ZAMBER_VERSION);
}

std::optional<QString> BuiltAppBundle::build() const {
    return QStringLiteral(ZAMBER_BUILD);
}

} // namespace zamber::freedesktop
