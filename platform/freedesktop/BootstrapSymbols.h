// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Symbols.h"

#include <QHash>

namespace zamber::freedesktop {

/// The Mac's symbol names answered with Bootstrap Icons, which are in the binary.
class BootstrapSymbols final : public Symbols {
public:
    QPixmap pixmap(const QString& name, const SymbolStyle& style) const override;

private:
    mutable QHash<QString, QPixmap> m_drawn;
};

} // namespace zamber::freedesktop
