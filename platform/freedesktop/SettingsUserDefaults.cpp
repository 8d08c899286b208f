// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/SettingsUserDefaults.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

#include <algorithm>
#include <limits>
#include <utility>

namespace zamber::freedesktop {

namespace {

/// A value of the file, before a getter converts it: a truth value or a text; numbers are texts in the file.
struct Stored {
    enum class Kind { Absent, Truth, Text };

    Kind kind = Kind::Absent;
    bool truth = false;
    QString text;
};

Stored storedValue(const QVariant& value) {
    switch (value.typeId()) {
    case QMetaType::Bool:
        return {Stored::Kind::Truth, value.toBool(), {}};
    case QMetaType::Int:
        return {Stored::Kind::Text, false, QString::number(value.toInt())};
    case QMetaType::QByteArray:
        return {Stored::Kind::Text, false, QString::fromUtf8(value.toByteArray())};
    case QMetaType::QString: {
        const auto text = value.toString();
        if (text == u"true" || text == u"false") {
            return {Stored::Kind::Truth, text == u"true", {}};
        }
        return {Stored::Kind::Text, false, text};
    }
    default:
        return {};
    }
}

/// The decimal number that the text begins with, after blanks; 0 where there is none.
int leadingInteger(QStringView text) {
    text = text.trimmed();
    const bool isNegative = text.startsWith(u'-');
    if (isNegative || text.startsWith(u'+')) {
        text = text.sliced(1);
    }
    constexpr qint64 LIMIT = std::numeric_limits<int>::max();
    qint64 number = 0;
    for (const QChar c : text) {
        if (c < u'0' || c > u'9') {
            break;
        }
        number = std::min(number * 10 + (c.unicode() - u'0'), LIMIT + 1);
    }
    return static_cast<int>(isNegative ? -number : std::min(number, LIMIT));
}

bool meansTrue(QStringView text) {
    text = text.trimmed();
    if (text.startsWith(u'-') || text.startsWith(u'+')) {
        text = text.sliced(1);
    }
    while (text.startsWith(u'0')) {
        text = text.sliced(1);
    }
    return !text.isEmpty() && QStringView(u"YyTt123456789").contains(text.front());
}

QHash<QString, QVariant> allValues(const QSettings& settings) {
    QHash<QString, QVariant> values;
    for (const auto& key : settings.allKeys()) {
        if (!key.isEmpty()) { // a line that begins with its equals sign
            values.insert(key, settings.value(key));
        }
    }
    return values;
}

} // namespace

SettingsUserDefaults::SettingsUserDefaults(const QString& path, std::chrono::milliseconds rewritingTime)
    : m_settings(path, QSettings::IniFormat) {
    QDir().mkpath(QFileInfo(path).absolutePath());
    m_seen = allValues(m_settings);
    QObject::connect(&m_watcher, &QFileSystemWatcher::fileChanged, &m_watcher, [this] { fileChanged(); });
    QObject::connect(&m_watcher, &QFileSystemWatcher::directoryChanged, &m_watcher, [this] { fileChanged(); });
    m_rewriting.setSingleShot(true);
    m_rewriting.setInterval(rewritingTime);
    QObject::connect(&m_rewriting, &QTimer::timeout, &m_rewriting, [this] { reload(); });
    watch();
}

QString SettingsUserDefaults::defaultPath() {
    auto folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    if (QDir::isRelativePath(folder)) { // the standard has a relative path in the variable ignored
        folder = QDir::homePath() + QStringLiteral("/.config");
    }
    return folder + QStringLiteral("/Zamber/Zamber.conf");
}

std::optional<QString> SettingsUserDefaults::string(const QString& key) const {
    const auto stored = storedValue(m_settings.value(key));
    switch (stored.kind) {
    case Stored::Kind::Absent:
        return std::nullopt;
    case Stored::Kind::Truth:
        return stored.truth ? QStringLiteral("1") : QStringLiteral("0");
    case Stored::Kind::Text:
        break;
    }
    return stored.text;
}

std::optional<int> SettingsUserDefaults::integer(const QString& key) const {
    const auto text = string(key);
    return text ? std::optional(leadingInteger(*text)) : std::nullopt;
}

std::optional<bool> SettingsUserDefaults::boolean(const QString& key) const {
    const auto text = string(key);
    return text ? std::optional(meansTrue(*text)) : std::nullopt;
}

void SettingsUserDefaults::setString(const QString& key, const QString& value) {
    const bool looksLikeTruth = value == u"true" || value == u"false";
    set(key, looksLikeTruth ? QVariant(value.toUtf8()) : QVariant(value));
}

void SettingsUserDefaults::setInteger(const QString& key, int value) {
    set(key, value);
}

void SettingsUserDefaults::setBoolean(const QString& key, bool value) {
    set(key, value);
}

UserDefaults::ObserverToken SettingsUserDefaults::addObserver(const QString& key, Observer observer) {
    const ObserverToken token{++m_lastId};
    m_observers.emplace(token.id, Observation{key, std::move(observer)});
    return token;
}

void SettingsUserDefaults::removeObserver(ObserverToken token) {
    m_observers.erase(token.id);
}

void SettingsUserDefaults::set(const QString& key, const QVariant& value) {
    m_settings.setValue(key, value);
    reload();
}

void SettingsUserDefaults::fileChanged() {
    const QFileInfo file(m_settings.fileName());
    if (m_seen.isEmpty() || file.size() > 0) {
        reload();
        return;
    }
    watch();
    if (!m_rewriting.isActive()) {
        m_rewriting.start();
    }
}

void SettingsUserDefaults::reload() {
    m_rewriting.stop();
    m_settings.sync();
    watch();
    tellObservers();
}

void SettingsUserDefaults::tellObservers() {
    auto values = allValues(m_settings);
    std::swap(m_seen, values);
    const auto isChanged = [&](const QString& key) {
        const auto before = storedValue(values.value(key));
        const auto now = storedValue(m_seen.value(key));
        return before.kind != now.kind || before.truth != now.truth || before.text != now.text;
    };
    QList<std::uint64_t> affected;
    for (const auto& [id, observation] : m_observers) {
        if (isChanged(observation.key)) {
            affected.append(id);
        }
    }
    for (const auto id : affected) {
        // An observer may remove itself and others.
        if (const auto found = m_observers.find(id); found != m_observers.end()) {
            const auto observer = found->second.observer;
            observer();
        }
    }
}

void SettingsUserDefaults::watch() {
    // A file that was replaced is no longer watched, and one that did not exist yet never was.
    const QFileInfo file(m_settings.fileName());
    if (file.exists() && !m_watcher.files().contains(file.absoluteFilePath())) {
        m_watcher.addPath(file.absoluteFilePath());
    }
    if (!m_watcher.directories().contains(file.absolutePath())) {
        m_watcher.addPath(file.absolutePath());
    }
}

} // namespace zamber::freedesktop
