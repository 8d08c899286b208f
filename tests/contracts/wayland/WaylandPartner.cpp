// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "tests/contracts/wayland/WaylandPartner.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QFile>
#include <QJsonDocument>
#include <QTimer>

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>

namespace zamber::wayland {

namespace {

constexpr int ANSWER_MILLISECONDS = 5000;

} // namespace

WaylandPartner::WaylandPartner() {
    m_owner.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_owner.start(QStringLiteral("/usr/bin/python3"), {QStringLiteral(ZAMBER_WAYLAND_OWNER), QStringLiteral("--log"),
                                                       m_folder.filePath(QStringLiteral("requests"))});
    tell({{QStringLiteral("hello"), true}});
}

WaylandPartner::~WaylandPartner() {
    die();
}

void WaylandPartner::tell(const QJsonObject& order) {
    m_owner.write(QJsonDocument(order).toJson(QJsonDocument::Compact) + '\n');
    // In place: our own loop is to see nothing of it yet.
    while (!m_owner.canReadLine() && m_owner.waitForReadyRead(ANSWER_MILLISECONDS)) {
    }
    EXPECT_EQ(m_owner.readLine(), "done\n");
}

void WaylandPartner::copy(const Offers& offers) {
    QJsonObject contents;
    for (const auto& [type, bytes] : offers) {
        QJsonValue value;
        if (bytes) {
            QFile file(m_folder.filePath(QStringLiteral("offer-%1").arg(++m_files)));
            EXPECT_TRUE(file.open(QIODevice::WriteOnly));
            file.write(*bytes);
            value = QJsonObject{{QStringLiteral("file"), file.fileName()}};
        }
        contents.insert(QString::fromLatin1(type), value);
    }
    tell({{QStringLiteral("offer"), contents}});
}

void WaylandPartner::copyBeginning(const QByteArray& type, const QByteArray& beginning) {
    const QJsonObject begun{{QStringLiteral("begin"), QString::fromLatin1(beginning.toHex())}};
    tell({{QStringLiteral("offer"), QJsonObject{{QString::fromLatin1(type), begun}}}});
}

void WaylandPartner::clearClipboard() {
    tell({{QStringLiteral("release"), true}});
}

void WaylandPartner::die() {
    m_owner.kill();
    m_owner.waitForFinished(ANSWER_MILLISECONDS);
}

void WaylandPartner::stop() {
    ::kill(static_cast<pid_t>(m_owner.processId()), SIGSTOP);
}

QByteArrayList WaylandPartner::requests() const {
    QFile log(m_folder.filePath(QStringLiteral("requests")));
    return log.open(QIODevice::ReadOnly) ? log.readAll().trimmed().split('\n') : QByteArrayList();
}

std::optional<QByteArray> WaylandPartner::pasted(const char* type) {
    QProcess paster;
    paster.start(QStringLiteral("wl-paste"),
                 {QStringLiteral("--no-newline"), QStringLiteral("--type"), QString::fromLatin1(type)});
    // Not in place: it may be this program that it asks.
    EXPECT_TRUE(waitUntil([&paster] { return paster.state() == QProcess::NotRunning; })) << "no answer for " << type;
    return paster.exitCode() == 0 ? std::optional(paster.readAllStandardOutput()) : std::nullopt;
}

bool WaylandPartner::waitUntil(const std::function<bool()>& condition, int milliseconds) {
    const QDeadlineTimer deadline(milliseconds);
    while (!condition()) {
        if (deadline.hasExpired()) {
            return false;
        }
        QTimer::singleShot(5, QCoreApplication::instance(), [] {}); // so that waiting for events ends
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return true;
}

WaylandEditor::WaylandEditor() {
    QStringList arguments{QStringLiteral(ZAMBER_EDITOR)};
    for (const auto& file : {QStringLiteral("text-file"), QStringLiteral("key-log"), QStringLiteral("image-file")}) {
        arguments << QStringLiteral("--") + file << m_folder.filePath(file);
    }
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_process.start(QStringLiteral("/usr/bin/python3"), arguments);
}

WaylandEditor::~WaylandEditor() {
    m_process.kill();
    m_process.waitForFinished(ANSWER_MILLISECONDS);
}

int WaylandEditor::pastesReceived() const {
    constexpr int CONTROL = 4;
    return presses(u"v", CONTROL);
}

bool WaylandEditor::hasReceivedInsert() const {
    return presses(u"Insert", 0) > 0;
}

int WaylandEditor::presses(QStringView key, int modifiers) const {
    QFile log(m_folder.filePath(QStringLiteral("key-log")));
    const QByteArrayList lines = log.open(QIODevice::ReadOnly) ? log.readAll().split('\n') : QByteArrayList();
    return static_cast<int>(std::ranges::count_if(lines, [&](const QByteArray& line) {
        const QJsonDocument event = QJsonDocument::fromJson(line);
        return event[QStringLiteral("pressed")].toBool() && event[QStringLiteral("name")].toString() == key &&
               (event[QStringLiteral("state")].toInt() & modifiers) == modifiers;
    }));
}

} // namespace zamber::wayland
