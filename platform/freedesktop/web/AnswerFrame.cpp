// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/web/AnswerFrame.h"

#include <QByteArrayView>

namespace zamber::freedesktop::web {

namespace {

constexpr QByteArrayView BODY = "body ";
constexpr QByteArrayView FAILURE = "failure ";

/// What comes after the word and its own length.
std::optional<QByteArray> contentAfter(QByteArrayView word, const QByteArray& output) {
    const qsizetype lineEnd = output.indexOf('\n');
    if (!output.startsWith(word) || lineEnd < 0) {
        return std::nullopt;
    }
    QByteArray content = output.sliced(lineEnd + 1);
    // Compared as it would have been written, so that no other spelling of the number passes.
    const bool isWhole = output.sliced(word.size(), lineEnd - word.size()) == QByteArray::number(content.size());
    return isWhole ? std::optional(std::move(content)) : std::nullopt;
}

} // namespace

QByteArray framed(const WebClient::Answer& answer) {
    const QByteArray content = answer ? *answer : answer.error().toUtf8();
    return (answer ? BODY : FAILURE).toByteArray() + QByteArray::number(content.size()) + '\n' + content;
}

std::optional<WebClient::Answer> unframed(const QByteArray& output) {
    if (auto body = contentAfter(BODY, output)) {
        return std::move(*body);
    }
    if (const auto reason = contentAfter(FAILURE, output)) {
        return std::unexpected(QString::fromUtf8(*reason));
    }
    return std::nullopt;
}

} // namespace zamber::freedesktop::web
