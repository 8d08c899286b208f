// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/DiskImageTool.h"

namespace zamber::macos {

/// The command hdiutil.
class MacDiskImageTool final : public DiskImageTool {
public:
    explicit MacDiskImageTool(const QString& command = defaultCommand());

    static QString defaultCommand();

    std::expected<QList<AttachedImage>, QString> attachedImages() override;
    void detach(const QString& volumePath) override;

private:
    QString m_command;
};

} // namespace zamber::macos
