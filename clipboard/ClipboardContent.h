// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "text/CaseFolding.h"

#include <QByteArray>
#include <QImage>
#include <QSize>
#include <QString>

#include <cstdint>
#include <memory>
#include <optional>

namespace zamber::clipboard {

/// What was copied: a text or the bytes of an image.
///
/// A value. Copies share one immutable payload; what is derived from it (everything below but `nsImage`) is made
/// when first asked for and kept with it. All members may be called from any thread, except `preview`, which reads
/// a preference, and the search keys.
class ClipboardContent {
public:
    /// A text as it was copied, in UTF-8, untrimmed.
    static ClipboardContent text(QByteArray utf8);
    /// The bytes of an image as they came. They are not looked at.
    static ClipboardContent image(QByteArray bytes);

    /// "text-…" or "image-…" with a hash. Equal contents have equal ids within one run; not for keeping.
    QByteArray id() const;

    /// The text for one row: trimmed, its first 150 user-perceived characters and "…", or a mask when the user hides
    /// sensitive texts and this one is.
    QString preview() const;

    /// Does the text look like it holds a password, key or token? Independent of any preference.
    bool isSensitive() const;

    /// The number of lines that are not blank; 0 for an image.
    qsizetype lineCount() const;
    /// The number of user-perceived characters of the untrimmed text; 0 for an image.
    qsizetype charCount() const;

    /// Makes what the three above tell, which takes a moment for a large text.
    void measure() const;
    /// Do they tell without a moment's work?
    bool isMeasured() const;

    bool isImage() const;

    /// The image decoded in full, or nothing for a text and for bytes that do not decode. Decoded anew at each call:
    /// for drawing a row take `thumbnail`.
    std::optional<QImage> nsImage() const;
    /// The image scaled to fill the box (pixels), what overflows cropped evenly; a null image where `nsImage` has
    /// none. The one last asked for is kept.
    QImage thumbnail(QSize box) const;

    /// The text in UTF-8, or nothing for an image.
    std::optional<QByteArray> textValue() const;
    /// The text in UTF-8 or the bytes of the image.
    const QByteArray& bytes() const;
    /// The text as a file may hold it: with U+FFFD in place of whatever in it is not UTF-8. Empty for an image.
    QByteArray utf8() const;

    /// The text made ready for searching (see Search.h); "image" for an image. Made here when it is not there yet, so
    /// for a large text see `hasSearchKey` first. These three are for the main thread.
    const QByteArray& searchKey(text::CaseFolding folding) const;
    bool hasSearchKey(text::CaseFolding folding) const;
    /// Takes what `makeSearchKey` has made of `bytes` elsewhere.
    void keepSearchKey(text::CaseFolding folding, QByteArray key) const;

    /// Texts are equal when they are canonically equivalent, images when their bytes are.
    friend bool operator==(const ClipboardContent& left, const ClipboardContent& right) {
        return left.m_fingerprint == right.m_fingerprint && left.hasSameContent(right);
    }

private:
    struct Payload;
    ClipboardContent(std::shared_ptr<const Payload> payload, std::uint64_t fingerprint);

    bool hasSameContent(const ClipboardContent& other) const;

    std::shared_ptr<const Payload> m_payload;
    /// Equal for equal contents, and at hand without going to the payload: most contents differ here already.
    std::uint64_t m_fingerprint;
};

} // namespace zamber::clipboard
