// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/tray/NotifierMenu.h"

#include <QCoreApplication>
#include <QEvent>

#include <gtest/gtest.h>

namespace zamber::freedesktop::tray {

namespace {

class NotifierMenuTest : public testing::Test {
protected:
    MenuItem item(const char* title, const char* key = "") {
        return {.title = QString::fromUtf8(title), .keyEquivalent = QString::fromLatin1(key), .action = [this] {
                    ++chosen;
                }};
    }

    NotifierMenuNode layout(uint* revision = nullptr) {
        NotifierMenuNode node;
        const uint now = menu.GetLayout(0, -1, {}, node);
        if (revision != nullptr) {
            *revision = now;
        }
        return node;
    }

    QObject object;
    int wanted = 0;
    int chosen = 0;
    QList<MenuItem> next;
    NotifierMenu menu{&object, [this] {
                          ++wanted;
                          menu.setItems(next);
                      }};
};

TEST_F(NotifierMenuTest, IsMadeWhenItIsReadAndWhenItIsOpened) {
    next = {item("One"), {}, item("Two", "q")};
    const NotifierMenuNode root = layout();
    EXPECT_EQ(wanted, 1);
    ASSERT_EQ(root.children.size(), 3);
    EXPECT_EQ(root.children[0].id, 1);
    EXPECT_EQ(root.children[0].properties.value(QStringLiteral("label")), QStringLiteral("One"));
    EXPECT_EQ(root.children[1].properties.value(QStringLiteral("type")), QStringLiteral("separator"));
    EXPECT_EQ(root.children[2].properties.value(QStringLiteral("shortcut")).value<QList<QStringList>>(),
              QList<QStringList>(1, {QStringLiteral("Super"), QStringLiteral("q")}));
    menu.AboutToShow(0);
    EXPECT_EQ(wanted, 2);
}

TEST_F(NotifierMenuTest, OnlyAnotherMenuHasAnotherRevision) {
    next = {item("One")};
    uint first = 0;
    uint second = 0;
    layout(&first);
    EXPECT_FALSE(menu.AboutToShow(0));
    layout(&second);
    EXPECT_EQ(first, second);
    next = {item("Other")};
    EXPECT_TRUE(menu.AboutToShow(0));
    layout(&second);
    EXPECT_GT(second, first);
}

TEST_F(NotifierMenuTest, ALineIsChosenAfterTheAnswer) {
    next = {item("One"), {}};
    layout();
    menu.Event(1, QStringLiteral("clicked"), {}, 0);
    EXPECT_EQ(chosen, 0);
    QCoreApplication::sendPostedEvents(&menu, QEvent::MetaCall);
    EXPECT_EQ(chosen, 1);
}

TEST_F(NotifierMenuTest, WhatIsNoLineCannotBeChosen) {
    next = {item("One"), {}};
    layout();
    for (const int id : {-1, 0, 2, 3, 1000}) {
        menu.Event(id, QStringLiteral("clicked"), {}, 0);
    }
    menu.Event(1, QStringLiteral("hovered"), {}, 0);
    QCoreApplication::sendPostedEvents(&menu, QEvent::MetaCall);
    EXPECT_EQ(chosen, 0);
}

TEST_F(NotifierMenuTest, AnUnderscoreIsALetterAndNoMark) {
    next = {item("a_b")};
    EXPECT_EQ(layout().children[0].properties.value(QStringLiteral("label")), QStringLiteral("a__b"));
}

TEST_F(NotifierMenuTest, ALineByItselfHasNoLinesAndAnUnknownOneNothing) {
    next = {item("One")};
    layout();
    NotifierMenuNode node;
    menu.GetLayout(1, -1, {}, node);
    EXPECT_TRUE(node.children.isEmpty());
    EXPECT_EQ(node.properties.value(QStringLiteral("label")), QStringLiteral("One"));
    menu.GetLayout(77, -1, {}, node);
    EXPECT_TRUE(node.properties.isEmpty());
    EXPECT_EQ(menu.GetGroupProperties({}, {}).size(), 2);
    EXPECT_EQ(menu.GetGroupProperties({1, 77}, {}).size(), 2);
}

} // namespace

} // namespace zamber::freedesktop::tray
