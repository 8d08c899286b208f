// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <optional>

namespace zamber {

/// The two kinds of image bytes that the program asks for. What they hold is not checked.
enum class ImageType { Tiff, Png };

/// The system clipboard.
///
/// Every call answers at once from what the adapter already holds; none of them waits for the program that was
/// copied from. Texts are valid UTF-8. Buffers are shared, never copied.
class Pasteboard {
public:
    virtual ~Pasteboard() = default;

    /// A number that changes whenever any process has written the clipboard and the content is completely here,
    /// and inside each of the writing calls below. What was there before the program started moves no count.
    virtual int changeCount() const = 0;

    /// The bytes of that representation, or nothing when the clipboard does not hold it.
    virtual std::optional<QByteArray> data(ImageType type) const = 0;

    /// The plain text, possibly empty, or nothing when the clipboard holds none.
    virtual std::optional<QByteArray> string() const = 0;

    /// Takes the clipboard over and empties it; the two setters below then add what it is to hold.
    virtual void clearContents() = 0;

    /// Offers a plain text (UTF-8).
    virtual void setString(const QByteArray& text) = 0;

    /// Offers image bytes under that type, unchanged.
    virtual void setData(ImageType type, const QByteArray& bytes) = 0;
};

} // namespace zamber
