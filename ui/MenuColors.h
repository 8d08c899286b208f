// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPalette>

#include <optional>

class QMenu;

namespace zamber::ui {

/// The colours of every menu that has none of its own: the tray icon's, and those of text fields. Each menu gets them
/// as it opens. Set for the whole application, they would last until the next change of the desktop's theme, and Qt
/// would report them as a new theme.
class MenuColors final : public QObject {
public:
    /// The application object exists before. Does nothing before the first `set`.
    MenuColors();

    void set(const QPalette& palette);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void color(QMenu& menu) const;

    std::optional<QPalette> m_palette;
};

} // namespace zamber::ui
