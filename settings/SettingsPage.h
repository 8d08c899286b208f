// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QScrollArea>

class QVBoxLayout;

namespace zamber::settings {

class SettingsLook;

/// A page that scrolls where it has to: a header and sections one under the other.
class SettingsPage : public QScrollArea {
    Q_OBJECT

public:
    explicit SettingsPage(const SettingsLook& look);

protected:
    void add(QWidget* part);
    const SettingsLook& look() const { return m_look; }

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    const SettingsLook& m_look;
    QVBoxLayout* m_column;
};

} // namespace zamber::settings
