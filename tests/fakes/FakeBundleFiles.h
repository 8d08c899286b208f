// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/BundleFiles.h"
#include "tests/fakes/Journal.h"

#include <QMap>
#include <QRegularExpression>
#include <QStringList>

#include <optional>

namespace zamber {

/// Files by their whole path; a folder is there while it holds one.
class FakeBundleFiles final : public BundleFiles {
public:
    explicit FakeBundleFiles(Journal& journal)
        : m_journal(journal) {}

    bool exists(const QString& path) const override { return contents.contains(path) || !childrenOf(path).isEmpty(); }

    std::expected<void, QString> remove(const QString& path) override {
        m_journal.note("remove " + path.toStdString());
        if (removeError || !exists(path)) {
            return std::unexpected(removeError.value_or(QStringLiteral("No such file")));
        }
        contents.remove(path);
        for (const QString& child : childrenOf(path)) {
            contents.remove(child);
        }
        return {};
    }

    std::expected<void, QString> copy(const QString& source, const QString& destination) override {
        m_journal.note("copy " + source.toStdString() + " to " + destination.toStdString());
        if (copyError || !exists(source) || exists(destination)) {
            return std::unexpected(copyError.value_or(QStringLiteral("No such file, or one too many")));
        }
        if (contents.contains(source)) {
            contents[destination] = contents[source];
        }
        for (const QString& child : childrenOf(source)) {
            contents[destination + child.sliced(source.size())] = contents[child];
        }
        return {};
    }

    QMap<QString, QByteArray> contents;
    std::optional<QString> removeError;
    std::optional<QString> copyError;

private:
    QStringList childrenOf(const QString& path) const {
        return contents.keys().filter(QRegularExpression(u'^' + QRegularExpression::escape(path + u'/')));
    }

    Journal& m_journal;
};

} // namespace zamber
