// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "update/UpdateManager.h"

#include "preferences/PreferenceKeys.h"

#include "platform/AppBundle.h"
#include "platform/Log.h"
#include "platform/UserDefaults.h"
#include "platform/Workspace.h"
#include "update/StrictAddress.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QStringConverter>

#include <cassert>
#include <charconv>
#include <string>
#include <utility>

namespace zamber::update {

using namespace Qt::StringLiterals;

namespace {

constexpr std::chrono::seconds FIRST_CHECK_DELAY{5};
constexpr std::chrono::seconds CHECK_INTERVAL{14400};

std::shared_ptr<UpdateManager> sharedManager; // NOLINT(readability-identifier-naming): no constant

std::optional<qint64> decimalNumber(const QString& text) {
    const std::string digits = text.toStdString();
    const char* begin = digits.data();
    const char* const end = begin + digits.size();
    if (digits.size() > 1 && *begin == '+' && begin[1] != '-') {
        ++begin;
    }
    qint64 number = 0;
    const auto [rest, error] = std::from_chars(begin, end, number);
    return error == std::errc() && rest == end ? std::optional(number) : std::nullopt;
}

/// JSON may come in any of Unicode's encodings, which its first bytes tell (RFC 4627, section 3).
QByteArray asUtf8(const QByteArray& json) {
    const auto encoding = QStringConverter::encodingForData(json, u'{');
    if (!encoding || *encoding == QStringConverter::Utf8) {
        return json;
    }
    return QString(QStringDecoder(*encoding)(json)).toUtf8();
}

} // namespace

std::shared_ptr<UpdateManager> UpdateManager::create(Scheduler& scheduler, UserDefaults& defaults, AppBundle& bundle,
                                                     Workspace& workspace, WebClient& web, QString apiBase) {
    return std::shared_ptr<UpdateManager>(
        new UpdateManager(scheduler, defaults, bundle, workspace, web, std::move(apiBase)));
}

UpdateManager::UpdateManager(Scheduler& scheduler, UserDefaults& defaults, AppBundle& bundle, Workspace& workspace,
                             WebClient& web, QString apiBase)
    : m_scheduler(scheduler)
    , m_defaults(defaults)
    , m_bundle(bundle)
    , m_workspace(workspace)
    , m_web(web)
    , m_apiBase(std::move(apiBase)) {}

UpdateManager::~UpdateManager() = default;

UpdateManager& UpdateManager::shared() {
    assert(sharedManager);
    return *sharedManager;
}

void UpdateManager::setShared(std::shared_ptr<UpdateManager> manager) {
    sharedManager = std::move(manager);
}

QString UpdateManager::defaultApiBase() {
    return QStringLiteral(ZAMBER_UPDATE_API_BASE);
}

QString UpdateManager::currentVersion() const {
    return m_bundle.version().value_or(u"1.0.0"_s);
}

qint64 UpdateManager::currentBuild() const {
    return decimalNumber(m_bundle.build().value_or(u"1"_s)).value_or(1);
}

bool UpdateManager::isVersionSkipped() const {
    return read(m_defaults, preferences::skippedVersion) == m_latestVersion;
}

void UpdateManager::startPeriodicChecks() {
    const auto check = [weak = weak_from_this()] {
        if (const auto manager = weak.lock()) {
            manager->checkForUpdates();
        }
    };
    m_scheduler.after(FIRST_CHECK_DELAY, check);
    m_timer = m_scheduler.every(CHECK_INTERVAL, check);
}

void UpdateManager::stopPeriodicChecks() {
    if (m_timer) {
        m_scheduler.invalidate(*m_timer);
        m_timer.reset();
    }
}

void UpdateManager::checkForUpdates() {
    if (isChecking()) {
        return;
    }
    // The version goes into the address unencoded. Where the result is no valid address, there is no request.
    const std::optional<QUrl> address = strictAddress(m_apiBase + u"/update/check?version="_s + currentVersion() +
                                                      u"&build="_s + QString::number(currentBuild()));
    if (!address) {
        return;
    }
    m_request = m_web.get(*address, [this](const WebClient::Answer& answer) {
        m_request.reset();
        m_lastChecked = m_scheduler.now();
        if (answer) {
            handleBody(*answer);
        } else {
            handleFailure(answer.error());
        }
        emit changed();
    });
    emit changed();
}

void UpdateManager::handleFailure(const QString& reason) {
    logLine("⚠️ Update check failed: " + reason.toStdString());
}

void UpdateManager::handleBody(const QByteArray& body) {
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(asUtf8(body), &error);
    if (error.error != QJsonParseError::NoError) {
        logLine("⚠️ Update parse error: " + error.errorString().toStdString() + " at byte " +
                std::to_string(error.offset));
        return;
    }
    const QJsonObject reply = document.object(); // empty where the document is not an object
    m_updateAvailable = reply["updateAvailable"_L1].toBool(false);
    if (m_updateAvailable) {
        m_latestVersion = reply["latestVersion"_L1].toString();
        m_downloadUrl = reply["downloadUrl"_L1].toString();
        m_releaseNotes = reply["releaseNotes"_L1].toString();
        m_isMandatory = reply["mandatory"_L1].toBool(false);
        logLine("🔄 Update available: v" + m_latestVersion.toStdString());
    }
}

void UpdateManager::downloadUpdate() {
    if (const std::optional<QUrl> address = strictAddress(m_downloadUrl)) {
        m_workspace.open(*address);
    }
}

void UpdateManager::skipVersion() {
    write(m_defaults, preferences::skippedVersion, m_latestVersion);
    m_updateAvailable = false;
    emit changed();
}

} // namespace zamber::update
