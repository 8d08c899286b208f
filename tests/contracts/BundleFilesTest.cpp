// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "tests/contracts/BundleFilesContract.h"
#include "tests/fakes/FakeBundleFiles.h"

#include <QByteArray>
#include <QString>

#include <optional>

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

} // namespace

INSTANTIATE_TYPED_TEST_SUITE_P(Fake, BundleFilesContract, FakeBundleFilesRig);

} // namespace zamber
