// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/session/DesktopShortcuts.h"
#include "platform/freedesktop/session/GSettingsShortcut.h"
#include "platform/freedesktop/session/XfconfShortcut.h"
#include "tests/contracts/DesktopShortcutContract.h"
#include "tests/fakes/FakeDesktopShortcut.h"

#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <chrono>
#include <optional>
#include <stdexcept>
#include <type_traits>

namespace zamber {

using namespace Qt::StringLiterals;
using freedesktop::session::GSettingsShortcut;
using freedesktop::session::GSettingsShortcutKeys;
using freedesktop::session::Programs;
using freedesktop::session::XfconfShortcut;

namespace {

const QString COMMAND = u"'/opt/it\\'s here/zamber'"_s;

/// A tool of the desktop's answers in milliseconds, but not where the sanitizers' tests take all processors.
constexpr std::chrono::milliseconds TOOLS_PATIENCE{30'000};

struct FakeShortcutRig {
    FakeDesktopShortcut fake;

    DesktopShortcut& shortcut() { return fake; }
    void breakRecord() { fake.failure = u"The key is not writable"_s; }
};

/// The desktop's schemas and a user's settings in a file, as where no dconf runs.
class GSettingsRig {
public:
    explicit GSettingsRig(const GSettingsShortcutKeys& keys)
        : m_keys(keys) {}

    DesktopShortcut& shortcut() { return adapter; }

    /// As where an administrator has locked the settings.
    void breakRecord() {
        QFile tool(folder.filePath(u"gsettings"_s));
        ASSERT_TRUE(tool.open(QIODevice::WriteOnly));
        tool.write("#!/bin/sh\n"
                   "[ \"$1\" = get ] && exec /usr/bin/gsettings \"$@\"\n"
                   "echo 'The key is not writable' >&2\n"
                   "exit 1\n");
        ASSERT_TRUE(tool.setPermissions(QFile::ReadOwner | QFile::ExeOwner));
    }

    QString get(const QString& schema, const QString& key) const {
        return programs.answer(u"gsettings"_s, {u"get"_s, schema, key}).value_or(u"no answer"_s).trimmed();
    }

    QString ofEntry(const QString& key) const { return get(m_keys.entrySchema + u':' + m_keys.entryPath, key); }
    QString list() const { return get(m_keys.listSchema, m_keys.listKey); }

    void setList(const QString& list) const {
        EXPECT_TRUE(programs.answer(u"gsettings"_s, {u"set"_s, m_keys.listSchema, m_keys.listKey, list}));
    }

    QTemporaryDir folder;
    Programs programs{environment(), TOOLS_PATIENCE};

private:
    QProcessEnvironment environment() const {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"GSETTINGS_BACKEND"_s, u"keyfile"_s);
        environment.insert(u"PATH"_s, folder.path() + u':' + environment.value(u"PATH"_s));
        environment.insert(u"XDG_CONFIG_HOME"_s, folder.path());
        return environment;
    }

    GSettingsShortcutKeys m_keys;

public:
    GSettingsShortcut adapter{m_keys, COMMAND, programs};
};

struct GnomeRig : GSettingsRig {
    GnomeRig()
        : GSettingsRig(GSettingsShortcut::gnome()) {}
};

struct CinnamonRig : GSettingsRig {
    CinnamonRig()
        : GSettingsRig(GSettingsShortcut::cinnamon()) {}
};

/// XFCE's own store of settings, which a message bus of its own starts when it is asked for.
class XfceRig {
public:
    XfceRig() {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"XDG_CONFIG_HOME"_s, m_folder.path());
        m_daemon.setProcessEnvironment(environment);
        m_daemon.start(u"dbus-daemon"_s, {u"--session"_s, u"--nofork"_s, u"--print-address"_s,
                                          u"--address=unix:dir="_s + m_folder.path()});
        while (!m_daemon.canReadLine()) {
            if (!m_daemon.waitForReadyRead(static_cast<int>(TOOLS_PATIENCE.count()))) {
                throw std::runtime_error("no message bus: " + m_daemon.readAllStandardError().toStdString());
            }
        }
        environment.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, QString::fromUtf8(m_daemon.readLine()).trimmed());
        programs.emplace(environment, TOOLS_PATIENCE);
        adapter.emplace(COMMAND, *programs);
    }

    ~XfceRig() { breakRecord(); }

    XfceRig(const XfceRig&) = delete;
    XfceRig& operator=(const XfceRig&) = delete;

    DesktopShortcut& shortcut() { return *adapter; }

    /// The store ends with its bus.
    void breakRecord() {
        m_daemon.kill();
        m_daemon.waitForFinished();
    }

    QString property(const QStringList& change = {}) const {
        return programs
            ->answer(u"xfconf-query"_s, QStringList{u"-c"_s, u"xfce4-keyboard-shortcuts"_s, u"-p"_s,
                                                    u"/commands/custom/<Shift><Super>v"_s} +
                                            change)
            .value_or(u"no answer"_s)
            .trimmed();
    }

    std::optional<Programs> programs;
    std::optional<XfconfShortcut> adapter;

private:
    QTemporaryDir m_folder;
    QProcess m_daemon;
};

template <class Rig>
class GSettingsShortcutTest : public testing::Test {
protected:
    Rig rig;
};

using GSettingsRigs = testing::Types<GnomeRig, CinnamonRig>;
TYPED_TEST_SUITE(GSettingsShortcutTest, GSettingsRigs);

using XfconfShortcutTest = testing::Test;
using DesktopShortcutsTest = testing::Test;

} // namespace

using DesktopShortcutRigs = testing::Types<FakeShortcutRig, GnomeRig, CinnamonRig, XfceRig>;
INSTANTIATE_TYPED_TEST_SUITE_P(Adapters, DesktopShortcutContract, DesktopShortcutRigs);

TYPED_TEST(GSettingsShortcutTest, TheDesktopReadsNameCommandAndKeys) {
    ASSERT_TRUE(this->rig.adapter.set());
    EXPECT_EQ(this->rig.ofEntry(u"name"_s), u"'Zamber'"_s);
    EXPECT_EQ(this->rig.ofEntry(u"command"_s), uR"("'/opt/it\\'s here/zamber'")"_s);
    EXPECT_TRUE(this->rig.ofEntry(u"binding"_s).contains(u"'<Super><Shift>v'"_s));
}

TYPED_TEST(GSettingsShortcutTest, TheUsersOtherShortcutsStay) {
    const QString others = uR"(['custom0', "it's, mine", 'a\\b'])"_s;
    this->rig.setList(others);
    ASSERT_TRUE(this->rig.adapter.set());
    EXPECT_EQ(this->rig.list().count(u"custom0"_s), 1);
    EXPECT_TRUE(this->rig.list().contains(u"it's, mine"_s));
    ASSERT_TRUE(this->rig.adapter.remove());
    EXPECT_EQ(this->rig.list(), others);
}

TYPED_TEST(GSettingsShortcutTest, NothingIsLeftOfAShortcutThatIsTakenAway) {
    ASSERT_TRUE(this->rig.adapter.set());
    ASSERT_TRUE(this->rig.adapter.remove());
    EXPECT_EQ(this->rig.list(), u"@as []"_s);
    EXPECT_EQ(this->rig.ofEntry(u"command"_s), u"''"_s);
}

TYPED_TEST(GSettingsShortcutTest, AShortcutOfAProgramThatHasMovedIsNotSetUntilItIsSetAgain) {
    ASSERT_TRUE(this->rig.adapter.set());
    GSettingsShortcut moved(std::is_same_v<TypeParam, GnomeRig> ? GSettingsShortcut::gnome()
                                                                : GSettingsShortcut::cinnamon(),
                            u"/usr/bin/zamber"_s, this->rig.programs);
    EXPECT_EQ(moved.status(), DesktopShortcutStatus::NotSet);
    ASSERT_TRUE(moved.set());
    EXPECT_EQ(moved.status(), DesktopShortcutStatus::Set);
    EXPECT_EQ(this->rig.list().count(u','), 0) << "it is listed twice";
}

TYPED_TEST(GSettingsShortcutTest, WithoutTheDesktopsSchemasNothingIsOffered) {
    GSettingsShortcutKeys keys = GSettingsShortcut::gnome();
    keys.listSchema = u"org.example.another-desktop"_s;
    EXPECT_EQ(GSettingsShortcut(keys, COMMAND, this->rig.programs).status(), DesktopShortcutStatus::NotOffered);
}

// Cinnamon's settings and its shell tell entries by names of this form.
TEST(CinnamonShortcutTest, TheNameIsOneThatCinnamonCouldHaveGiven) {
    CinnamonRig rig;
    ASSERT_TRUE(rig.adapter.set());
    EXPECT_TRUE(QRegularExpression(u"\\A\\['custom[0-9]+'\\]\\z"_s).match(rig.list()).hasMatch());
    EXPECT_EQ(rig.ofEntry(u"binding"_s), u"['<Super><Shift>v']"_s);
}

TEST_F(XfconfShortcutTest, TheDesktopReadsTheCommand) {
    XfceRig rig;
    ASSERT_TRUE(rig.adapter->set());
    EXPECT_EQ(rig.property(), COMMAND);
    ASSERT_TRUE(rig.adapter->remove());
    EXPECT_EQ(rig.property(), u"no answer"_s);
}

TEST_F(XfconfShortcutTest, WithoutTheDesktopsStoreNothingIsOffered) {
    XfceRig rig;
    rig.breakRecord();
    EXPECT_EQ(rig.adapter->status(), DesktopShortcutStatus::NotOffered);
}

TEST_F(XfconfShortcutTest, KeysThatStartSomethingElseAreLeftToIt) {
    XfceRig rig;
    rig.property({u"-n"_s, u"-t"_s, u"string"_s, u"-s"_s, u"xfce4-terminal"_s});
    const auto outcome = rig.adapter->set();
    ASSERT_FALSE(outcome);
    EXPECT_TRUE(outcome.error().contains(u"xfce4-terminal"_s));
    EXPECT_TRUE(rig.adapter->remove());
    EXPECT_EQ(rig.property(), u"xfce4-terminal"_s);
}

TEST_F(DesktopShortcutsTest, EachDesktopHasItsOwnAndOthersHaveNone) {
    using namespace freedesktop::session;
    const QString path = u"/usr/bin/zamber"_s;
    EXPECT_TRUE(dynamic_cast<GSettingsShortcut*>(desktopShortcutOf({u"ubuntu"_s, u"GNOME"_s}, path).get()) != nullptr);
    EXPECT_TRUE(dynamic_cast<GSettingsShortcut*>(desktopShortcutOf({u"X-Cinnamon"_s}, path).get()) != nullptr);
    EXPECT_TRUE(dynamic_cast<XfconfShortcut*>(desktopShortcutOf({u"XFCE"_s}, path).get()) != nullptr);
    EXPECT_EQ(desktopShortcutOf({u"KDE"_s}, path), nullptr);
    EXPECT_EQ(desktopShortcutOf({}, path), nullptr);
}

TEST_F(DesktopShortcutsTest, APathIsOneWordToAShell) {
    using freedesktop::session::shellWord;
    EXPECT_EQ(shellWord(u"/usr/bin/zamber"_s), u"/usr/bin/zamber"_s);
    for (const QString& path : {u"/opt/it's here/zamber"_s, u"/a$b/`c`/\"d\"/ü"_s}) {
        QProcess shell;
        shell.start(u"/bin/sh"_s, {u"-c"_s, u"printf %s "_s + shellWord(path)});
        ASSERT_TRUE(shell.waitForFinished());
        EXPECT_EQ(QString::fromUtf8(shell.readAllStandardOutput()), path);
    }
}

} // namespace zamber
