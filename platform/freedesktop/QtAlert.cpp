// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/QtAlert.h"

#include <QMessageBox>
#include <QPushButton>

namespace zamber::freedesktop {

using namespace Qt::StringLiterals;

int QtAlert::run(const AlertContent& content) {
    QMessageBox box;
    box.setWindowTitle(u"Zamber"_s);
    box.setWindowFlag(Qt::WindowStaysOnTopHint); // the program may have no window for it to be in front of
    box.setIcon(content.style == AlertStyle::Warning ? QMessageBox::Warning : QMessageBox::Information);
    box.setTextFormat(Qt::PlainText);
    box.setText(content.message);
    box.setInformativeText(content.informativeText);
    QList<QAbstractButton*> buttons;
    const QStringList titles = content.buttons.isEmpty() ? QStringList{u"OK"_s} : content.buttons;
    for (const QString& title : titles) {
        // An ampersand is shown, not taken for a mnemonic's. Buttons of one role stay in their order.
        QString label = title;
        label.replace(u'&', u"&&"_s);
        buttons.append(box.addButton(label, QMessageBox::ActionRole));
    }
    box.setDefaultButton(qobject_cast<QPushButton*>(buttons.first()));
    box.setEscapeButton(buttons.last());
    box.exec();
    const qsizetype pressed = buttons.indexOf(box.clickedButton());
    return static_cast<int>(pressed >= 0 ? pressed : buttons.size() - 1);
}

} // namespace zamber::freedesktop
