// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/session/Programs.h"

#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

#include <utility>

namespace zamber::freedesktop::session {

using namespace Qt::StringLiterals;

namespace {

/// What a desktop tells the one program that it starts, and no program that this one starts.
constexpr QLatin1StringView VARIABLES_OF_OUR_START[] = {
    "DESKTOP_STARTUP_ID"_L1,
    "XDG_ACTIVATION_TOKEN"_L1,
    "GIO_LAUNCHED_DESKTOP_FILE"_L1,
    "GIO_LAUNCHED_DESKTOP_FILE_PID"_L1,
};

struct Opener {
    QString program;
    QStringList arguments; // before the address
};

} // namespace

const QProcessEnvironment& startEnvironment() {
    static const QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    return environment;
}

Programs::Programs(const QProcessEnvironment& environment, std::chrono::milliseconds patience)
    : m_environment(environment)
    , m_patience(patience) {
    for (const QLatin1StringView variable : VARIABLES_OF_OUR_START) {
        m_environment.remove(variable);
    }
}

std::expected<void, QString> Programs::open(const QUrl& address) const {
    for (const Opener& opener :
         {Opener{.program = u"xdg-open"_s, .arguments = {}}, Opener{.program = u"gio"_s, .arguments = {u"open"_s}}}) {
        const QString path = find(opener.program);
        if (!path.isEmpty()) {
            return start(path, opener.arguments + QStringList{address.toString(QUrl::FullyEncoded)});
        }
    }
    return std::unexpected(u"There is no program that opens addresses (xdg-open)"_s);
}

std::expected<void, QString> Programs::startNewInstance(const QString& path) const {
    return start(QFileInfo(path).isDir() ? path + u"/AppRun"_s : path, {});
}

std::expected<QString, QString> Programs::answer(const QString& program, const QStringList& arguments) const {
    const QString path = find(program);
    if (path.isEmpty()) {
        return std::unexpected(u"There is no program called "_s + program);
    }
    QProcess process;
    process.setProcessEnvironment(m_environment);
    process.setStandardInputFile(QProcess::nullDevice());
    process.start(path, arguments);
    if (!process.waitForFinished(static_cast<int>(m_patience.count()))) {
        const QString error = process.errorString();
        process.kill();
        process.waitForFinished();
        return std::unexpected(program + u": "_s + error);
    }
    if (process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0) {
        const QString said = QString::fromLocal8Bit(process.readAllStandardError()).trimmed();
        return std::unexpected(said.isEmpty() ? program + u" has failed"_s : said);
    }
    return QString::fromUtf8(process.readAllStandardOutput());
}

QString Programs::find(const QString& program) const {
    return QStandardPaths::findExecutable(program, m_environment.value(u"PATH"_s).split(u':', Qt::SkipEmptyParts));
}

std::expected<void, QString> Programs::start(const QString& program, const QStringList& arguments) const {
    QProcess process;
    process.setProgram(program);
    process.setArguments(arguments);
    process.setProcessEnvironment(m_environment);
    process.setStandardInputFile(QProcess::nullDevice());
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    if (!process.startDetached()) {
        return std::unexpected(process.errorString());
    }
    return {};
}

} // namespace zamber::freedesktop::session
