// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

namespace zamber {

/// The program as it was installed.
class AppBundle {
public:
    virtual ~AppBundle() = default;

    /// The absolute path of the bundle's folder, or of its file where the bundle is a single one.
    virtual QString path() const = 0;

    /// What people call the release ("1.0.0"), and the build's number, a text as well. Each is absent when the bundle
    /// does not say it, or not as a text.
    virtual std::optional<QString> version() const = 0;
    virtual std::optional<QString> build() const = 0;
};

} // namespace zamber
