// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/selection/SelectionPasteboard.h"

#include <chrono>
#include <utility>

namespace zamber::freedesktop::selection {

namespace {

/// Who owns our content again by itself does so within this time; a user who copies it takes longer to get there.
constexpr std::chrono::milliseconds ECHO_TIME{2000};

/// Some programs copy the same content every second for ever. Counted each time, the history would never come to rest
/// for the second after which it is saved.
constexpr std::chrono::milliseconds REPEAT_TIME{2000};

ImageFormat formatOf(ImageType type) {
    return type == ImageType::Png ? ImageFormat::Png : ImageFormat::Tiff;
}

} // namespace

SelectionPasteboard::SelectionPasteboard() {
    m_takeOverDelay.setSingleShot(true);
    m_takeOverDelay.setInterval(TakeOver::DELAY);
    connect(&m_takeOverDelay, &QTimer::timeout, this, &SelectionPasteboard::takeOver);
    m_countAgain.setSingleShot(true);
    connect(&m_countAgain, &QTimer::timeout, this, &SelectionPasteboard::countAgain);
}

std::optional<QByteArray> SelectionPasteboard::data(ImageType type) const {
    return m_content.imageLabel == formatOf(type) ? m_content.image : std::nullopt;
}

void SelectionPasteboard::clearContents() {
    write({});
}

void SelectionPasteboard::setString(const QByteArray& text) {
    SelectionContent content = m_content;
    content.text = text;
    write(content);
}

void SelectionPasteboard::setData(ImageType type, const QByteArray& bytes) {
    SelectionContent content = m_content;
    content.image = bytes;
    content.imageLabel = formatOf(type);
    write(content);
}

void SelectionPasteboard::write(const SelectionContent& content) {
    stopReading();
    m_takeOverDelay.stop();
    m_takeOver.cancel();
    m_content = content;
    m_source = ContentSource::Ourselves;
    m_countAgain.stop();
    handleSettled();
    m_writes.note(++m_changeCount, content);
    if (!m_areWritesHeld) {
        m_offered = m_changeCount;
        put(content);
    }
}

void SelectionPasteboard::put(const SelectionContent& content) {
    m_isOfferedByOther = false;
    publish(content);
}

void SelectionPasteboard::endPublishing() {
    m_isTakingOver = false;
    Q_EMIT ownershipChanged();
}

SelectionPasteboard::Standing SelectionPasteboard::standingOf(int changeCount) const {
    if (m_writes.find(changeCount) == nullptr) {
        return Standing::Lost;
    }
    const bool isOffered = isOwner() || m_isOfferedByOther;
    return isOffered && m_offered == changeCount && !isPublishing() && !m_reader ? Standing::Offered
                                                                                 : Standing::Pending;
}

void SelectionPasteboard::offer(int changeCount) {
    const SelectionContent* const content = m_writes.find(changeCount);
    // Whoever is being read may have copied, which counts more, or may have taken over what we offered, which will do.
    const bool isUnderWay = m_reader || (isPublishing() && m_offered == changeCount);
    if (content != nullptr && !isUnderWay && standingOf(changeCount) != Standing::Offered) {
        m_offered = changeCount;
        put(*content);
    }
}

void SelectionPasteboard::showWrites() {
    m_areWritesHeld = false;
    if (const std::optional<int> last = m_writes.last(); last && *last != m_offered) {
        offer(*last);
    }
}

const SelectionContent& SelectionPasteboard::contentAt(int changeCount) const {
    const SelectionContent* const written = m_writes.find(changeCount);
    return written != nullptr ? *written : m_content;
}

bool SelectionPasteboard::isWriteOnItsWay() const {
    return isPublishing() && m_source == ContentSource::Ourselves && !m_isTakingOver;
}

void SelectionPasteboard::handleOwnEcho() {
    stopReading();
    m_source = ContentSource::Ourselves;
}

void SelectionPasteboard::startReading(const MakeReader& makeReader, Counts counts) {
    m_isOfferedByOther = false;
    stopReading();
    m_takeOverDelay.stop();
    m_takeOver.cancel();
    // What is held now is not what the new owner has, so that it is not to be served in its name.
    m_source = ContentSource::Nothing;
    m_reader = makeReader([this, counts](const CopyReader::Outcome& outcome) { handleReading(outcome, counts); });
}

void SelectionPasteboard::handleReading(const CopyReader::Outcome& outcome, Counts counts) {
    if (m_readerOfMore) {
        handleMore(std::get<CopyReader::Arrived>(outcome));
        return;
    }
    std::unique_ptr<QObject> reader = std::move(m_reader);
    if (const auto* arrived = std::get_if<CopyReader::Arrived>(&outcome)) {
        m_readerOfMore = arrived->isComplete ? nullptr : std::move(reader);
        handleContent(arrived->content, counts);
    } else {
        m_writes.forget();
        m_countAgain.stop();
        if (std::holds_alternative<CopyReader::Secret>(outcome)) {
            m_content = {};
            m_source = ContentSource::Secret;
            m_changeCount += counts == Counts::AsChange ? 1 : 0;
        }
    }
    retire(std::move(reader));
    if (!m_readerOfMore) {
        handleSettled();
    }
    Q_EMIT ownershipChanged();
}

void SelectionPasteboard::retire(std::unique_ptr<QObject> reader) {
    if (reader) {
        reader->setParent(this);         // not to outlive what it asks by
        reader.release()->deleteLater(); // it is the one that calls
    }
}

void SelectionPasteboard::handleMore(const CopyReader::Arrived& more) {
    if (!m_isOfferedByOther) { // what this program wrote is known already
        m_content = more.content;
    }
    retire(std::move(m_readerOfMore));
    handleSettled();
    Q_EMIT ownershipChanged();
}

void SelectionPasteboard::handleContent(const SelectionContent& content, Counts counts) {
    // The text beside an image comes only after it.
    const bool isSame = m_content.image == content.image && (content.image || m_content.text == content.text);
    const bool isRepeated = !content.isEmpty() && isSame;
    const std::optional<int> written = m_writes.newestEqualTo(content);
    const bool isRecent = m_sinceOffer.isValid() && !m_sinceOffer.hasExpired(ECHO_TIME.count());
    m_source = ContentSource::Foreign;
    if (written && isRecent) {
        // Programs that share the clipboard with another machine own it again with what they have got from us.
        m_offered = *written;
        m_isOfferedByOther = true;
        m_sinceOffer.start();
        return;
    }
    m_writes.forget();
    m_content = content;
    const bool isChange = counts == Counts::AsChange;
    if (isRepeated && isChange && m_sinceCounted.isValid() && !m_sinceCounted.hasExpired(REPEAT_TIME.count())) {
        if (!m_countAgain.isActive()) {
            m_countAgain.start(REPEAT_TIME - std::chrono::milliseconds(m_sinceCounted.elapsed()));
        }
        return;
    }
    m_countAgain.stop();
    if (isChange) {
        countAgain();
    }
}

void SelectionPasteboard::countAgain() {
    ++m_changeCount;
    m_sinceCounted.start();
}

void SelectionPasteboard::stopReading() {
    m_reader.reset();
    m_readerOfMore.reset();
}

void SelectionPasteboard::handleLoss(OwnerLoss loss) {
    m_isOfferedByOther = false;
    stopReading();
    handleSettled();
    if (m_takeOver.begin(loss, m_source, m_content)) {
        m_sinceLoss.start();
        m_takeOverDelay.start();
    } else {
        m_takeOverDelay.stop();
    }
}

void SelectionPasteboard::handleCleared() {
    handleReading(CopyReader::Arrived{}, Counts::AsChange);
}

void SelectionPasteboard::takeOver() {
    switch (m_takeOver.verdict(hasOwner(), isFormerOwnerRunning(), std::chrono::milliseconds(m_sinceLoss.elapsed()))) {
    case TakeOver::Verdict::Never:
        m_takeOver.cancel();
        return;
    case TakeOver::Verdict::NotYet:
        m_takeOverDelay.start();
        return;
    case TakeOver::Verdict::Now:
        break;
    }
    m_content = m_takeOver.content();
    m_takeOver.cancel();
    m_source = ContentSource::Ourselves;
    m_isTakingOver = !isPublishing();
    const SelectionContent* const written = m_writes.find(m_offered);
    put(written != nullptr ? *written : m_content);
}

} // namespace zamber::freedesktop::selection
