// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "clipboard/ClipboardContent.h"

#include "preferences/PreferenceKeys.h"
#include "text/ByteView.h"
#include "text/Characters.h"
#include "text/NormalForm.h"
#include "text/Utf8.h"

#include "clipboard/Images.h"
#include "clipboard/Preview.h"
#include "clipboard/Search.h"
#include "clipboard/SensitiveContent.h"
#include "platform/UserDefaults.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <mutex>
#include <utility>

namespace zamber::clipboard {

namespace {

/// How much of a content its fingerprint looks at, at either end.
constexpr std::size_t FINGERPRINT_BYTES = 256;

/// A value that is made when first asked for.
template <class T>
class Lazy {
public:
    template <class Make>
    const T& get(Make make) const {
        std::call_once(m_once, [&] {
            m_value = make();
            m_isMade = true;
        });
        return m_value;
    }
    bool isMade() const { return m_isMade; }

private:
    mutable std::once_flag m_once;
    mutable std::atomic<bool> m_isMade = false;
    mutable T m_value{};
};

std::uint64_t imageFingerprint(std::string_view bytes) {
    const auto end = bytes.substr(bytes.size() - std::min(bytes.size(), FINGERPRINT_BYTES));
    return text::byteHash(bytes.substr(0, FINGERPRINT_BYTES), text::byteHash(end, bytes.size()));
}

} // namespace

struct ClipboardContent::Payload {
    Payload(bool image, QByteArray payloadBytes)
        : isImage(image)
        , bytes(std::move(payloadBytes)) {}

    const bool isImage;
    const QByteArray bytes;

    Lazy<QByteArray> id;
    Lazy<QString> preview;
    Lazy<bool> isSensitive;
    Lazy<qsizetype> lineCount;
    Lazy<qsizetype> charCount;
    Lazy<QByteArray> utf8;
    mutable std::array<std::optional<QByteArray>, 2> searchKeys;
    mutable std::mutex thumbnailMutex;
    mutable QSize thumbnailBox;
    mutable QImage thumbnail;
};

ClipboardContent::ClipboardContent(std::shared_ptr<const Payload> payload, std::uint64_t fingerprint)
    : m_payload(std::move(payload))
    , m_fingerprint(fingerprint) {}

ClipboardContent ClipboardContent::text(QByteArray utf8) {
    const auto fingerprint = text::canonicalHash(text::view(utf8), FINGERPRINT_BYTES);
    return {std::make_shared<const Payload>(false, std::move(utf8)), fingerprint};
}

ClipboardContent ClipboardContent::image(QByteArray bytes) {
    const auto fingerprint = imageFingerprint(text::view(bytes));
    return {std::make_shared<const Payload>(true, std::move(bytes)), fingerprint};
}

QByteArray ClipboardContent::id() const {
    return m_payload->id.get([this] {
        const auto hash = isImage() ? text::byteHash(text::view(bytes())) : text::canonicalHash(text::view(bytes()));
        return QByteArray(isImage() ? "image-" : "text-") + QByteArray::number(static_cast<qint64>(hash));
    });
}

QString ClipboardContent::preview() const {
    if (isImage()) {
        return QStringLiteral("📷 Image");
    }
    if (read(UserDefaults::standard(), preferences::hideSensitive) && isSensitive()) {
        return maskedPreview();
    }
    return m_payload->preview.get([this] { return textPreview(text::view(bytes())); });
}

bool ClipboardContent::isSensitive() const {
    return m_payload->isSensitive.get([this] { return !isImage() && looksSensitive(text::view(bytes())); });
}

qsizetype ClipboardContent::lineCount() const {
    return m_payload->lineCount.get(
        [this] { return isImage() ? 0 : static_cast<qsizetype>(text::countLines(text::view(bytes()))); });
}

qsizetype ClipboardContent::charCount() const {
    return m_payload->charCount.get(
        [this] { return isImage() ? 0 : static_cast<qsizetype>(text::countCharacters(text::view(bytes())).count); });
}

void ClipboardContent::measure() const {
    lineCount();
    charCount();
    isSensitive();
}

bool ClipboardContent::isMeasured() const {
    return isImage() ||
           (m_payload->lineCount.isMade() && m_payload->charCount.isMade() && m_payload->isSensitive.isMade());
}

bool ClipboardContent::isImage() const {
    return m_payload->isImage;
}

std::optional<QImage> ClipboardContent::nsImage() const {
    return isImage() ? decodedImage(bytes()) : std::nullopt;
}

QImage ClipboardContent::thumbnail(QSize box) const {
    if (!isImage() || box.isEmpty()) {
        return {};
    }
    const std::scoped_lock lock(m_payload->thumbnailMutex);
    if (m_payload->thumbnailBox != box) {
        m_payload->thumbnail = imageFilling(box, bytes());
        m_payload->thumbnailBox = box;
    }
    return m_payload->thumbnail;
}

std::optional<QByteArray> ClipboardContent::textValue() const {
    return isImage() ? std::nullopt : std::optional(bytes());
}

const QByteArray& ClipboardContent::bytes() const {
    return m_payload->bytes;
}

QByteArray ClipboardContent::utf8() const {
    return m_payload->utf8.get([this] { return isImage() ? QByteArray() : text::repairedUtf8(bytes()); });
}

const QByteArray& ClipboardContent::searchKey(text::CaseFolding folding) const {
    auto& key = m_payload->searchKeys[static_cast<std::size_t>(folding)];
    if (!key) {
        key = isImage() ? QByteArray("image") : makeSearchKey(bytes(), folding);
    }
    return *key;
}

bool ClipboardContent::hasSearchKey(text::CaseFolding folding) const {
    return isImage() || m_payload->searchKeys[static_cast<std::size_t>(folding)].has_value();
}

void ClipboardContent::keepSearchKey(text::CaseFolding folding, QByteArray key) const {
    m_payload->searchKeys[static_cast<std::size_t>(folding)] = std::move(key);
}

bool ClipboardContent::hasSameContent(const ClipboardContent& other) const {
    if (m_payload == other.m_payload) {
        return true;
    }
    if (isImage() != other.isImage()) {
        return false;
    }
    return isImage() ? bytes() == other.bytes()
                     : text::canonicallyEqual(text::view(bytes()), text::view(other.bytes()));
}

} // namespace zamber::clipboard
