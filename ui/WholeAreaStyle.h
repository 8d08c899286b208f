// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QProxyStyle>
#include <QStyleOption>

namespace zamber::ui {

/// For buttons that draw themselves and take clicks everywhere. Qt tells assistive technology that they are where the
/// style would draw them.
class WholeAreaStyle final : public QProxyStyle {
public:
    /// The style of the button from now on, which owns it.
    explicit WholeAreaStyle(QWidget* button) {
        setParent(button);
        button->setStyle(this);
    }

    QRect subElementRect(SubElement element, const QStyleOption* option, const QWidget* widget) const override {
        return element == SE_CheckBoxClickRect || element == SE_RadioButtonClickRect
                   ? option->rect
                   : QProxyStyle::subElementRect(element, option, widget);
    }
};

} // namespace zamber::ui
