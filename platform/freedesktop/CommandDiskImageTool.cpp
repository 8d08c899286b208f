// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/CommandDiskImageTool.h"

#include "platform/freedesktop/PropertyList.h"

#include <QProcess>

namespace zamber::freedesktop {

using namespace Qt::StringLiterals;

namespace {

constexpr int NO_BOUND_MS = -1;

std::optional<QString> textOf(const QVariantMap& dictionary, const QString& key) {
    const QVariant value = dictionary.value(key);
    return value.typeId() == QMetaType::QString ? std::optional(value.toString()) : std::nullopt;
}

/// The elements of a list under a key that are dictionaries; none when it is no list.
QList<QVariantMap> dictionariesOf(const QVariantMap& dictionary, const QString& key) {
    QList<QVariantMap> found;
    const QVariant list = dictionary.value(key);
    if (list.typeId() == QMetaType::QVariantList) {
        for (const QVariant& element : list.toList()) {
            if (element.typeId() == QMetaType::QVariantMap) {
                found.append(element.toMap());
            }
        }
    }
    return found;
}

/// What it wrote to its standard output, once it has ended; how it ended is not looked at. QProcess reads while it
/// waits, so that a report longer than a pipe holds does not stop the tool.
std::expected<QByteArray, QString> outputOf(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.setStandardInputFile(QProcess::nullDevice());
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(program, arguments);
    if (!process.waitForStarted(NO_BOUND_MS)) {
        return std::unexpected(process.errorString());
    }
    process.waitForFinished(NO_BOUND_MS);
    return process.readAllStandardOutput();
}

} // namespace

std::expected<QList<AttachedImage>, QString> CommandDiskImageTool::attachedImages() {
    const auto output = outputOf(m_program, {u"info"_s, u"-plist"_s});
    if (!output) {
        return std::unexpected(output.error());
    }
    const auto report = readPropertyList(*output);
    if (!report) {
        return std::unexpected(report.error());
    }
    QList<AttachedImage> images;
    for (const QVariantMap& image : dictionariesOf(report->toMap(), u"images"_s)) {
        AttachedImage attached{.imagePath = textOf(image, u"image-path"_s), .mountPoints = {}};
        for (const QVariantMap& entity : dictionariesOf(image, u"system-entities"_s)) {
            if (const std::optional<QString> mountPoint = textOf(entity, u"mount-point"_s)) {
                attached.mountPoints.append(*mountPoint);
            }
        }
        images.append(attached);
    }
    return images;
}

void CommandDiskImageTool::detach(const QString& volumePath) {
    [[maybe_unused]] const auto output = outputOf(m_program, {u"detach"_s, volumePath, u"-force"_s});
}

} // namespace zamber::freedesktop
