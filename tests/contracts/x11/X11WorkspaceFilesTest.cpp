// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/x11/Connection.h"
#include "platform/x11/Windows.h"
#include "platform/x11/X11Workspace.h"
#include "tests/contracts/WorkspaceFilesContract.h"
#include "tests/contracts/x11/X11Partner.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

namespace zamber::x11 {

namespace {

/// With a Trash of its own.
struct X11WorkspaceFilesRig {
    X11Partner partner;
    std::unique_ptr<x11::Connection> connection = *x11::Connection::open();
    x11::Windows windows{*connection};
    x11::X11Workspace adapter{*connection, windows, [](const QString&) { return std::optional<QString>(); }};
    QTemporaryDir folder;
    QByteArray dataHome = qgetenv("XDG_DATA_HOME");

    X11WorkspaceFilesRig() { qputenv("XDG_DATA_HOME", QFile::encodeName(folder.filePath(QStringLiteral("data")))); }
    ~X11WorkspaceFilesRig() { dataHome.isNull() ? qunsetenv("XDG_DATA_HOME") : qputenv("XDG_DATA_HOME", dataHome); }

    Workspace& workspace() { return adapter; }
    QString makeProgram() {
        const QString path = folder.filePath(QStringLiteral("Good App"));
        write(path, "#!/bin/sh\necho start >>\"$0.starts\"\n");
        EXPECT_TRUE(QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
        return path;
    }
    static int starts(const QString& path) {
        QFile file(path + QStringLiteral(".starts"));
        return file.open(QIODevice::ReadOnly) ? static_cast<int>(file.readAll().count('\n')) : 0;
    }
    QString makeFile() {
        QString path = folder.filePath(QStringLiteral("One.dmg"));
        write(path, "image");
        return path;
    }
    bool isTrashed(const QString& path) {
        const QDir trash(folder.filePath(QStringLiteral("data/Trash/files")));
        return !QFileInfo::exists(path) && trash.exists(QFileInfo(path).fileName());
    }
    bool waitUntil(const std::function<bool()>& condition) { return partner.waitUntil(condition); }

private:
    static void write(const QString& path, const QByteArray& bytes) {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
};

} // namespace

INSTANTIATE_TYPED_TEST_SUITE_P(X11, WorkspaceFilesContract, X11WorkspaceFilesRig);

} // namespace zamber::x11
