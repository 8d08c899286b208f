// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "ui/Typography.h"

#include <QFontDatabase>

namespace zamber::ui {

using namespace Qt::StringLiterals;

namespace {

/// The first of the families that is installed, else the desktop's own. A missing family is never asked for: Qt would
/// take a substitute with other metrics.
QString installedFamily(std::initializer_list<QString> wanted, QFontDatabase::SystemFont otherwise) {
    for (const QString& family : wanted) {
        if (QFontDatabase::hasFamily(family)) {
            return family;
        }
    }
    return QFontDatabase::systemFont(otherwise).family();
}

QFont sized(const QString& family, int points, QFont::Weight weight) {
    QFont font(family);
    font.setPixelSize(points);
    font.setWeight(weight);
    // Small sizes keep their true widths, so that texts are as wide at every scale factor.
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

} // namespace

QFont textFont(int points, QFont::Weight weight) {
    static const QString family = installedFamily({u"Inter"_s}, QFontDatabase::GeneralFont);
    return sized(family, points, weight);
}

QFont roundedFont(int points, QFont::Weight weight) {
    static const QString family =
        installedFamily({u"Nunito"_s, u"M PLUS Rounded 1c"_s, u"Varela Round"_s, u"Quicksand"_s, u"Comfortaa"_s},
                        QFontDatabase::GeneralFont);
    static const bool isRound = family != QFontDatabase::systemFont(QFontDatabase::GeneralFont).family();
    return isRound ? sized(family, points, weight) : textFont(points, weight);
}

QFont monospacedFont(int points, QFont::Weight weight) {
    static const QString family =
        installedFamily({u"JetBrains Mono"_s, u"Noto Sans Mono"_s, u"DejaVu Sans Mono"_s}, QFontDatabase::FixedFont);
    QFont font = sized(family, points, weight);
    font.setStyleHint(QFont::Monospace);
    return font;
}

} // namespace zamber::ui
