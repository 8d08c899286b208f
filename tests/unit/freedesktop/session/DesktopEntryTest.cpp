// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/session/DesktopEntry.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <initializer_list>
#include <map>
#include <utility>

namespace zamber::freedesktop::session {

using namespace Qt::StringLiterals;

namespace {

DesktopEntry entryOf(const QByteArray& keys) {
    return DesktopEntry::parse("[Desktop Entry]\n" + keys).value();
}

/// Environment variables that have these values until the end of the test.
class Variables {
public:
    explicit Variables(std::initializer_list<std::pair<const char*, const char*>> values) {
        for (const char* const name : {"LC_ALL", "LC_MESSAGES", "LANG", "LANGUAGE"}) {
            m_before[name] = qgetenv(name);
            qunsetenv(name);
        }
        for (const auto& [name, value] : values) {
            qputenv(name, value);
        }
    }
    ~Variables() {
        for (const auto& [name, value] : m_before) {
            value.isNull() ? qunsetenv(name) : qputenv(name, value);
        }
    }
    Variables(const Variables&) = delete;
    Variables& operator=(const Variables&) = delete;

private:
    std::map<const char*, QByteArray> m_before;
};

} // namespace

TEST(DesktopEntry, OnlyTheMainGroupCounts) {
    const auto entry = DesktopEntry::parse("# x\n[Other]\nName=no\n[Desktop Entry]\nName = yes\n#Icon=no\n"
                                           "[Desktop Action a]\nName=no\n");
    ASSERT_TRUE(entry);
    EXPECT_EQ(entry->string(u"Name"_s), u"yes"_s);
    EXPECT_FALSE(entry->contains(u"Icon"_s));
    EXPECT_FALSE(DesktopEntry::parse("Name=no\n"));
    EXPECT_FALSE(DesktopEntry::parse("[Desktop Action a]\nName=no\n"));
}

TEST(DesktopEntry, ValuesAreUnescaped) {
    EXPECT_EQ(entryOf(R"(Name=a\sb\tc\nd\\s\q\)").string(u"Name"_s), u"a b\tc\nd\\s\\q\\"_s);
}

TEST(DesktopEntry, TheNameInTheBestLocaleIsTaken) {
    const DesktopEntry entry =
        entryOf("Name=plain\nName[de]=deutsch\nName[de_AT]=österreichisch\nName[sr@latin]=srpski\n"
                "Name[fr]=\n");
    const auto name = [&](const QStringList& locales) { return entry.localeString(u"Name"_s, locales); };
    EXPECT_EQ(name({}), u"plain"_s);
    EXPECT_EQ(name({u"de_AT"_s, u"de"_s}), u"österreichisch"_s);
    EXPECT_EQ(name({u"de_CH"_s, u"de"_s}), u"deutsch"_s);
    EXPECT_EQ(name({u"sr_RS@latin"_s, u"sr_RS"_s, u"sr@latin"_s, u"sr"_s}), u"srpski"_s);
    EXPECT_EQ(name({u"fr"_s}), u"plain"_s) << "an empty one is none";
}

TEST(DesktopEntry, BooleansHaveTheirFallback) {
    const DesktopEntry entry = entryOf("A=true\nB=1\nC=false\nD=\nE=TRUE\n");
    EXPECT_TRUE(entry.boolean(u"A"_s) && entry.boolean(u"B"_s) && entry.boolean(u"E"_s));
    EXPECT_FALSE(entry.boolean(u"C"_s, true) || entry.boolean(u"D"_s) || entry.boolean(u"F"_s));
    EXPECT_TRUE(entry.boolean(u"D"_s, true) && entry.boolean(u"F"_s, true));
}

TEST(DesktopEntry, WhatExecStartsIsFound) {
    const std::map<QByteArray, QString> programs{
        {"/usr/bin/zamber", u"/usr/bin/zamber"_s},
        {"zamber --option %U", u"zamber"_s},
        {R"("/opt/my programs/zamber" %f)", u"/opt/my programs/zamber"_s},
        {R"("/opt/a\\"b\\\\c\\$d/zamber")", u"/opt/a\"b\\c$d/zamber"_s},
        {"env /opt/100%%/zamber", u"/opt/100%/zamber"_s},
        {"/usr/bin/env A=1 B=2 zamber x", u"zamber"_s},
        {"env A=1", QString()},
        {"", QString()},
        {"   ", QString()},
        {"\"unfinished", u"unfinished"_s},
    };
    for (const auto& [exec, program] : programs) {
        EXPECT_EQ(entryOf("Exec=" + exec + "\n").program(), program) << exec.toStdString();
    }
    EXPECT_EQ(entryOf("").program(), QString());
}

TEST(DesktopEntry, APathThatWasWrittenIsReadAgain) {
    for (const QString& path : {u"/usr/bin/zamber"_s, u"/opt/my programs/zamber"_s, u"/opt/a\"b\\c/zamber"_s,
                                u"/opt/$HOME/`x`/it's"_s, u"/opt/100%/zamber"_s, u"/opt/größe & (c);"_s}) {
        const DesktopEntry entry =
            entryOf(("Exec=" + execValue(path).toUtf8() + "\nTryExec=" + stringValue(path).toUtf8() + "\n"));
        EXPECT_EQ(entry.program(), path);
        EXPECT_EQ(entry.string(u"TryExec"_s), path);
    }
}

TEST(DesktopEntry, WhatIsNoFileOfThatKindIsNotRead) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"x.desktop"_s);
    EXPECT_FALSE(DesktopEntry::readFile(path));
    EXPECT_FALSE(DesktopEntry::readFile(folder.path()));
    ASSERT_EQ(mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    EXPECT_FALSE(DesktopEntry::readFile(path)) << "a pipe is not waited for";
    QFile::remove(path);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("[Desktop Entry]\nName=x\n");
    file.close();
    EXPECT_TRUE(DesktopEntry::readFile(path));
    ASSERT_TRUE(file.resize(100'000'000));
    EXPECT_FALSE(DesktopEntry::readFile(path));
}

TEST(MessageLocales, ComeFromTheFirstVariableThatIsSet) {
    {
        const Variables variables({});
        EXPECT_EQ(messageLocales(), QStringList());
    }
    {
        const Variables variables({{"LANG", "de_AT.UTF-8@euro"}});
        EXPECT_EQ(messageLocales(), (QStringList{u"de_AT@euro"_s, u"de_AT"_s, u"de@euro"_s, u"de"_s}));
    }
    {
        const Variables variables({{"LANG", "ca@valencia"}});
        EXPECT_EQ(messageLocales(), (QStringList{u"ca@valencia"_s, u"ca"_s}));
    }
    {
        const Variables variables({{"LANG", "_AT.UTF-8"}, {"LANGUAGE", ".UTF-8:@euro"}});
        EXPECT_EQ(messageLocales(), QStringList());
    }
    {
        const Variables variables({{"LANG", "de_AT.UTF-8"}, {"LC_MESSAGES", "fr_FR"}});
        EXPECT_EQ(messageLocales(), (QStringList{u"fr_FR"_s, u"fr"_s}));
    }
    {
        const Variables variables({{"LANG", "de_AT.UTF-8"}, {"LC_ALL", "C"}, {"LANGUAGE", "fr"}});
        EXPECT_EQ(messageLocales(), QStringList());
    }
    {
        const Variables variables({{"LANG", "de_AT.UTF-8"}, {"LANGUAGE", "pt_BR:fr"}});
        EXPECT_EQ(messageLocales(), (QStringList{u"pt_BR"_s, u"pt"_s, u"fr"_s, u"de_AT"_s, u"de"_s}));
    }
}

} // namespace zamber::freedesktop::session
