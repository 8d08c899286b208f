// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Symbols.h"

namespace zamber::macos {

/// The system's symbols, drawn into pixmaps of the asked colour.
class MacSymbols final : public Symbols {
public:
    QPixmap pixmap(const QString& name, const SymbolStyle& style) const override;
};

} // namespace zamber::macos
