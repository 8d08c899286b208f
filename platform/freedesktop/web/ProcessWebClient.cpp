// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/web/ProcessWebClient.h"

#include "platform/SingleShotTimer.h"
#include "platform/freedesktop/web/AnswerFrame.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QUrl>

#include <cstdlib>
#include <utility>

namespace zamber::freedesktop::web {

using namespace Qt::StringLiterals;

namespace {

constexpr int KILLED_MILLISECONDS = 1000;

class ProcessRequest final : public QObject, public WebClient::Request {
public:
    ProcessRequest(Scheduler& scheduler, const QString& program, const QUrl& address, WebClient::Done done)
        : m_done(std::move(done))
        , m_timer(scheduler, WebClient::LONGEST_REQUEST, [this] { end(std::unexpected(WebClient::timedOut())); }) {
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        connect(&m_process, &QProcess::readyReadStandardOutput, this, [this] { takeOutput(); });
        // Queued, since the call back may destroy the process, which must not happen in the midst of its own calls.
        connect(&m_process, &QProcess::finished, this, [this] { finish(); }, Qt::QueuedConnection);
        connect(
            &m_process, &QProcess::errorOccurred, this,
            [this](QProcess::ProcessError error) {
                if (error == QProcess::FailedToStart) {
                    end(std::unexpected(u"The request could not be started: %1."_s.arg(m_process.errorString())));
                }
            },
            Qt::QueuedConnection);
        m_timer.start();
        m_process.start(program, {QString::fromLatin1(address.toEncoded())});
    }

    ~ProcessRequest() override {
        m_process.disconnect(this);
        stop();
    }

private:
    void takeOutput() {
        m_output += m_process.readAllStandardOutput();
        if (m_output.size() > LONGEST_FRAME_BYTES) {
            m_process.kill(); // and says so when it has ended
        }
    }

    void finish() {
        takeOutput();
        if (m_output.size() > LONGEST_FRAME_BYTES) {
            end(std::unexpected(WebClient::tooLarge()));
            return;
        }
        const bool hasSucceeded =
            m_process.exitStatus() == QProcess::NormalExit && m_process.exitCode() == EXIT_SUCCESS;
        if (const auto answer = unframed(m_output); answer && answer->has_value() == hasSucceeded) {
            end(*answer);
        } else {
            end(std::unexpected(u"The request ended without an answer."_s));
        }
    }

    void end(const WebClient::Answer& answer) {
        if (std::exchange(m_hasEnded, true)) {
            return; // what was queued before
        }
        m_timer.stop();
        stop();
        const WebClient::Done done = m_done; // the call may be the end of this object
        done(answer);
    }

    void stop() {
        if (m_process.state() != QProcess::NotRunning) {
            m_process.kill();
            m_process.waitForFinished(KILLED_MILLISECONDS);
        }
    }

    const WebClient::Done m_done;
    SingleShotTimer m_timer;
    QProcess m_process;
    QByteArray m_output;
    bool m_hasEnded = false;
};

} // namespace

ProcessWebClient::ProcessWebClient(Scheduler& scheduler, QString program)
    : m_scheduler(scheduler)
    , m_program(std::move(program)) {}

QString ProcessWebClient::installedProgram() {
    const QDir folder(QCoreApplication::applicationDirPath());
    const QString beside = folder.filePath(u"zamber-fetch"_s);
    return QFileInfo::exists(beside)
               ? beside
               : QDir::cleanPath(folder.filePath(QStringLiteral(ZAMBER_PROGRAMS_FOLDER "/zamber-fetch")));
}

std::unique_ptr<WebClient::Request> ProcessWebClient::get(const QUrl& address, Done done) {
    return std::make_unique<ProcessRequest>(m_scheduler, m_program, address, std::move(done));
}

} // namespace zamber::freedesktop::web
