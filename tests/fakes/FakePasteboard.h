// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Pasteboard.h"

#include <QList>

#include <utility>

namespace zamber {

/// A clipboard in memory. It records what the program writes and how often it reads; the copy… calls are what
/// another program does.
class FakePasteboard final : public Pasteboard {
public:
    struct Write {
        enum class Kind { Clear, String, Tiff, Png };

        Kind kind;
        QByteArray bytes;

        bool operator==(const Write&) const = default;
    };

    QList<Write> writes;
    mutable int reads = 0;

    int changeCount() const override { return m_changeCount; }

    std::optional<QByteArray> data(ImageType type) const override {
        ++reads;
        return type == ImageType::Tiff ? m_tiff : m_png;
    }

    std::optional<QByteArray> string() const override {
        ++reads;
        return m_text;
    }

    void clearContents() override {
        writes.append({Write::Kind::Clear, {}});
        empty();
    }

    void setString(const QByteArray& text) override {
        writes.append({Write::Kind::String, text});
        m_text = text;
        ++m_changeCount;
    }

    void setData(ImageType type, const QByteArray& bytes) override {
        writes.append({type == ImageType::Tiff ? Write::Kind::Tiff : Write::Kind::Png, bytes});
        (type == ImageType::Tiff ? m_tiff : m_png) = bytes;
        ++m_changeCount;
    }

    void copyText(QByteArray text) {
        empty();
        m_text = std::move(text);
    }

    void copyImage(ImageType type, QByteArray bytes) {
        empty();
        (type == ImageType::Tiff ? m_tiff : m_png) = std::move(bytes);
    }

    void copyImageWithText(ImageType type, QByteArray bytes, QByteArray text) {
        copyImage(type, std::move(bytes));
        m_text = std::move(text);
    }

    /// Something that is neither an image nor a text.
    void copyNothing() { empty(); }

private:
    void empty() {
        m_tiff.reset();
        m_png.reset();
        m_text.reset();
        ++m_changeCount;
    }

    int m_changeCount = 7;
    std::optional<QByteArray> m_tiff;
    std::optional<QByteArray> m_png;
    std::optional<QByteArray> m_text;
};

} // namespace zamber
