// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/QtAlert.h"
#include "tests/contracts/AlertContract.h"
#include "tests/fakes/FakeAlert.h"

#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

namespace zamber {

namespace {

struct FakeAlertRig {
    Journal journal;
    FakeAlert fake{journal};

    Alert& alert() { return fake; }
    void press(int button) { fake.answers.append(button); }
    void closeWindow() {}
};

/// Waits for the dialog and does something to it, once.
void withDialog(const std::function<void(QMessageBox&)>& action) {
    auto* const timer = new QTimer(qApp);
    timer->callOnTimeout(timer, [timer, action] {
        if (auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
            timer->deleteLater();
            timer->stop();
            action(*box);
        }
    });
    timer->start(5);
}

struct QtAlertRig {
    freedesktop::QtAlert real;

    Alert& alert() { return real; }
    static void press(int button) {
        withDialog([button](QMessageBox& box) { box.buttons().at(button)->click(); });
    }
    static void closeWindow() {
        withDialog([](QMessageBox& box) { box.close(); });
    }
};

} // namespace

INSTANTIATE_TYPED_TEST_SUITE_P(Fake, AlertContract, FakeAlertRig);
INSTANTIATE_TYPED_TEST_SUITE_P(Qt, AlertContract, QtAlertRig);

TEST(QtAlert, ShowsItsTextsAsTheyAreAndItsButtonsInTheirOrder) {
    QStringList labels;
    QString text;
    QString informativeText;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    QAbstractButton* pressedByReturn = nullptr;
    withDialog([&](QMessageBox& box) {
        // Where they stand on the screen is what counts.
        QList<QAbstractButton*> buttons = box.buttons();
        std::ranges::sort(buttons, {}, [](const QAbstractButton* button) { return button->mapToGlobal(QPoint()).x(); });
        for (const QAbstractButton* const button : buttons) {
            labels.append(button->text());
        }
        text = box.text();
        informativeText = box.informativeText();
        icon = box.icon();
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_TRUE(box.isVisible());
        pressedByReturn = box.defaultButton();
        EXPECT_EQ(pressedByReturn, box.buttons().first());
        box.close();
    });
    freedesktop::QtAlert().run(
        {.style = AlertStyle::Warning,
         .message = QStringLiteral("Message"),
         .informativeText = QStringLiteral("A <b>\n\nError & more"),
         .buttons = {QStringLiteral("First & Best"), QStringLiteral("Second"), QStringLiteral("Third")}});
    EXPECT_EQ(labels,
              QStringList({QStringLiteral("First && Best"), QStringLiteral("Second"), QStringLiteral("Third")}));
    EXPECT_EQ(text, QStringLiteral("Message"));
    EXPECT_EQ(informativeText, QStringLiteral("A <b>\n\nError & more"));
    EXPECT_EQ(icon, QMessageBox::Warning);
    EXPECT_NE(pressedByReturn, nullptr);
}

TEST(QtAlert, TheMainLoopGoesOnMeanwhile) {
    int turns = 0;
    QTimer other;
    other.callOnTimeout(&other, [&] {
        if (++turns == 3) {
            QApplication::activeModalWidget()->close();
        }
    });
    other.start(1);
    freedesktop::QtAlert().run({.message = QStringLiteral("Message")});
    EXPECT_GE(turns, 3);
}

} // namespace zamber
