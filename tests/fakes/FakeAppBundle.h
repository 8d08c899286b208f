// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/AppBundle.h"

namespace zamber {

/// An installation that a test makes up.
class FakeAppBundle final : public AppBundle {
public:
    QString path() const override { return bundlePath; }
    std::optional<QString> version() const override { return versionText; }
    std::optional<QString> build() const override { return buildText; }

    QString bundlePath = QStringLiteral("/Applications/Zamber.app");
    std::optional<QString> versionText = QStringLiteral("2.3.4");
    std::optional<QString> buildText = QStringLiteral("56");
};

} // namespace zamber
