// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

class QLineEdit;
class QPoint;

namespace zamber {
class Pasteboard;
}

namespace zamber::freedesktop {

/// Pastes into the program's own text fields from what the pasteboard already holds.
///
/// Qt's fields ask the clipboard's owner and wait in place for the answer. This program cannot answer while it waits,
/// and another owner may hang.
class TextFieldPaste final : public QObject {
    Q_OBJECT

public:
    /// The application object exists before this one, and outlives it.
    explicit TextFieldPaste(const Pasteboard& pasteboard);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void pasteInto(QLineEdit& field) const;
    void showMenu(QLineEdit& field, QPoint place) const;

    const Pasteboard& m_pasteboard;
};

} // namespace zamber::freedesktop
