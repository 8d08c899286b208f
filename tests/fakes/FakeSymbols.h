// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Symbols.h"

#include <QList>
#include <QSet>

#include <cmath>

namespace zamber {

/// Symbols that are filled squares, and a record of which ones were asked for.
class FakeSymbols final : public Symbols {
public:
    struct Request {
        QString name;
        SymbolStyle style;
    };

    mutable QList<Request> requests;
    QSet<QString> unknownNames;

    QPixmap pixmap(const QString& name, const SymbolStyle& style) const override {
        requests.append({name, style});
        if (name.isEmpty() || unknownNames.contains(name)) {
            return {};
        }
        const int side = static_cast<int>(std::ceil(std::round(style.pointSize) * style.devicePixelRatio));
        QPixmap square(side, side);
        square.fill(style.color);
        square.setDevicePixelRatio(style.devicePixelRatio);
        return square;
    }

    QSet<QString> requestedNames() const {
        QSet<QString> names;
        for (const Request& request : requests) {
            names.insert(request.name);
        }
        return names;
    }
};

} // namespace zamber
