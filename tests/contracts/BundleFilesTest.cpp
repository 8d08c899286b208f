// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/LocalBundleFiles.h"
#include "tests/contracts/BundleFilesContract.h"
#include "tests/fakes/FakeBundleFiles.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

namespace zamber {

namespace {

struct FakeBundleFilesRig {
    Journal journal;
    FakeBundleFiles fake{journal};

    BundleFiles& files() { return fake; }
    void write(const QString& path, const QByteArray& bytes) { fake.contents[path] = bytes; }
    std::optional<QByteArray> read(const QString& path) {
        return fake.contents.contains(path) ? std::optional(fake.contents[path]) : std::nullopt;
    }
};

struct LocalBundleFilesRig {
    QTemporaryDir folder;
    freedesktop::LocalBundleFiles real{folder.path().toStdString()};

    LocalBundleFilesRig() {
        QDir(folder.path()).mkdir(QStringLiteral("from"));
        QDir(folder.path()).mkdir(QStringLiteral("to"));
    }
    BundleFiles& files() { return real; }
    void write(const QString& path, const QByteArray& bytes) {
        QFile file(folder.path() + path);
        EXPECT_TRUE(QDir().mkpath(QFileInfo(file).path()));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    std::optional<QByteArray> read(const QString& path) {
        QFile file(folder.path() + path);
        return file.open(QIODevice::ReadOnly) ? std::optional(file.readAll()) : std::nullopt;
    }
};

} // namespace

INSTANTIATE_TYPED_TEST_SUITE_P(Fake, BundleFilesContract, FakeBundleFilesRig);
INSTANTIATE_TYPED_TEST_SUITE_P(Local, BundleFilesContract, LocalBundleFilesRig);

} // namespace zamber
