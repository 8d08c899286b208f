// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/selection/CopyReader.h"

#include <algorithm>
#include <new>
#include <utility>

namespace zamber::freedesktop::selection {

namespace {

using enum OwnerAnswer::Outcome;

std::optional<ImageFormat> formatOf(QByteArrayView type) {
    if (type == TYPE_PNG) {
        return ImageFormat::Png;
    }
    if (type == TYPE_TIFF) {
        return ImageFormat::Tiff;
    }
    return std::nullopt;
}

} // namespace

CopyReader::CopyReader(AskOwner ask, Tell tell)
    : m_ask(std::move(ask))
    , m_tell(std::move(tell)) {}

void CopyReader::begin(const std::optional<std::vector<QByteArray>>& offered) {
    m_plan = planReading(offered);
    if (m_plan.mayBeSecret) {
        m_ask(TYPE_PASSWORD_MANAGER_HINT.toByteArray(), [this](const OwnerAnswer& answer) { handleHint(answer); });
    } else {
        askForNextCandidate();
    }
}

void CopyReader::handleHint(const OwnerAnswer& answer) {
    if (answer.outcome == Delivered && saysSecret(answer.bytes)) {
        m_tell(Secret{});
    } else if (answer.outcome == Silent || answer.outcome == BrokenOff) {
        m_tell(Failed{}); // the hint may have marked a secret
    } else {
        askForNextCandidate();
    }
}

void CopyReader::askForNextCandidate() {
    if (m_plan.candidates.empty()) {
        handleArrival({}); // something else than images and texts: a change, but with nothing in it for the history
        return;
    }
    if (m_tries == std::min<std::size_t>(m_plan.candidates.size(), MOST_TRIES)) {
        if (m_doubtful) {
            handleArrival(*std::exchange(m_doubtful, std::nullopt));
        } else {
            m_tell(Failed{});
        }
        return;
    }
    const QByteArray type = m_plan.candidates[m_tries++];
    m_ask(type, [this, type](const OwnerAnswer& answer) { handleCandidate(type, answer); });
}

void CopyReader::handleCandidate(const QByteArray& asked, const OwnerAnswer& answer) {
    if (answer.outcome == BrokenOff) {
        m_tell(Failed{}); // a poorer type must not take its place
    } else if (answer.outcome != Delivered) {
        askForNextCandidate();
    } else if (isImageType(asked)) {
        handleImage(answer);
    } else {
        handleText(answer);
    }
}

void CopyReader::handleText(const OwnerAnswer& answer) {
    std::optional<QByteArray> text;
    try {
        text = textOf(answer.type, answer.bytes);
    } catch (const std::bad_alloc&) {
        m_tell(Failed{}); // it may need a second copy, to be mended
        return;
    }
    if (text) {
        handleArrival({.text = text, .image = {}, .files = {}});
    } else {
        askForNextCandidate();
    }
}

void CopyReader::handleImage(const OwnerAnswer& answer) {
    if (!isImageType(answer.type) || answer.bytes.isEmpty()) {
        askForNextCandidate();
        return;
    }
    const std::optional<ImageFormat> format = formatOf(answer.type);
    if (!format) {
        convertImage(answer.bytes, ImageFormat::Png, this, [this](const QByteArray& png) {
            if (png.isEmpty()) {
                askForNextCandidate();
            } else {
                handleArrival({.text = {}, .image = png, .imageLabel = ImageFormat::Png, .files = {}});
            }
        });
        return;
    }
    const SelectionContent content{.text = {}, .image = answer.bytes, .imageLabel = *format, .files = {}};
    if (!m_plan.textBesideImage) {
        handleArrival(content); // the copy has nothing better, whatever the bytes are
        return;
    }
    checkImage(answer.bytes, this, [this, content](bool isReadable) {
        if (isReadable) {
            handleArrival(content);
        } else {
            m_doubtful = content;
            askForNextCandidate();
        }
    });
}

void CopyReader::handleArrival(SelectionContent content) {
    m_content = std::move(content);
    if (m_content.image && m_plan.textBesideImage && m_tries == 1) {
        m_beside.push_back(*m_plan.textBesideImage);
    }
    std::ranges::copy(m_plan.filesBeside, std::back_inserter(m_beside));
    std::ranges::reverse(m_beside);
    if (!m_beside.empty()) {
        m_tell(Arrived{.content = m_content, .isComplete = false});
    }
    askForNextBeside();
}

void CopyReader::askForNextBeside() {
    if (m_beside.empty()) {
        m_tell(Arrived{.content = m_content, .isComplete = true});
        return;
    }
    const QByteArray type = m_beside.back();
    m_beside.pop_back();
    m_ask(type, [this, type](const OwnerAnswer& answer) { handleBeside(type, answer); });
}

void CopyReader::handleBeside(const QByteArray& asked, const OwnerAnswer& answer) {
    if (answer.outcome == Silent || answer.outcome == BrokenOff) {
        m_beside.clear(); // an owner that does not answer one question does not answer the next
    } else if (answer.outcome == Delivered && !answer.bytes.isEmpty()) {
        if (asked == m_plan.textBesideImage) {
            m_content.text = textOf(answer.type, answer.bytes);
        } else if (saysCut(asked, answer.bytes)) {
            // Files that were cut can only be moved by the program they were cut in, which will have gone.
            m_content.files.clear();
            m_beside.clear();
        } else if (asked != TYPE_KDE_CUT_MARK) {
            m_content.files.insert_or_assign(asked, answer.bytes);
        }
    }
    askForNextBeside();
}

} // namespace zamber::freedesktop::selection
