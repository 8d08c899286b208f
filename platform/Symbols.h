// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QFont>
#include <QPixmap>
#include <QString>

namespace zamber {

/// What a symbol is drawn as.
struct SymbolStyle {
    double pointSize = 13;
    QFont::Weight weight = QFont::Normal;
    QColor color;
    double devicePixelRatio = 1;
};

/// The desktop's set of monochrome symbols, called by the names of the Mac's.
class Symbols {
public:
    virtual ~Symbols() = default;

    /// The symbol as sharp pixels whose device pixel ratio is set, in its own box, which is about as high as a
    /// capital letter's line at that size. A null pixmap for a name that the set does not have.
    virtual QPixmap pixmap(const QString& name, const SymbolStyle& style) const = 0;
};

} // namespace zamber
