// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/DiskImageTool.h"

namespace zamber::freedesktop {

/// Runs a program that takes hdiutil's arguments and reports as it does. Linux has none of its own.
class CommandDiskImageTool final : public DiskImageTool {
public:
    explicit CommandDiskImageTool(QString program = QStringLiteral("/usr/bin/hdiutil"))
        : m_program(std::move(program)) {}

    std::expected<QList<AttachedImage>, QString> attachedImages() override;
    void detach(const QString& volumePath) override;

private:
    const QString m_program;
};

} // namespace zamber::freedesktop
