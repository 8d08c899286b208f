// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

#include <chrono>
#include <expected>

class QUrl;

namespace zamber::freedesktop::session {

/// The environment that this program was started with: the first call takes it, so that call comes before anything is
/// set in it for Qt.
const QProcessEnvironment& startEnvironment();

/// Starts other programs as the desktop would: with the user's environment instead of ours, without what tells about
/// our own start, and with no part in our standard streams.
class Programs {
public:
    /// How long the caller waits for an answer.
    static constexpr std::chrono::milliseconds PATIENCE{2000};

    explicit Programs(const QProcessEnvironment& environment = startEnvironment(),
                      std::chrono::milliseconds patience = PATIENCE);

    /// Opens an address in the program that the user has chosen for its kind, by the desktop's own opener.
    std::expected<void, QString> open(const QUrl& address) const;

    /// Starts a program as a process of its own, also while another of it runs. The path is an executable file, or a
    /// folder with one called AppRun, which is how programs that are folders begin here.
    std::expected<void, QString> startNewInstance(const QString& path) const;

    /// Runs a program of the user's to its end and returns what it has printed. For the desktop's small tools: the
    /// caller waits. The error is the program's own text, or why there is no answer.
    std::expected<QString, QString> answer(const QString& program, const QStringList& arguments) const;

private:
    QString find(const QString& program) const;
    std::expected<void, QString> start(const QString& program, const QStringList& arguments) const;

    QProcessEnvironment m_environment;
    std::chrono::milliseconds m_patience;
};

} // namespace zamber::freedesktop::session
