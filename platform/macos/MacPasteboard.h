// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Pasteboard.h"

#include <QString>

namespace zamber::macos {

/// A pasteboard of the pasteboard server, which holds the contents itself and counts the changes.
class MacPasteboard final : public Pasteboard {
public:
    /// The general pasteboard, or one of that name, which no other program reads.
    MacPasteboard();
    explicit MacPasteboard(const QString& name);
    ~MacPasteboard() override;
    MacPasteboard(const MacPasteboard&) = delete;
    MacPasteboard& operator=(const MacPasteboard&) = delete;

    int changeCount() const override;
    std::optional<QByteArray> data(ImageType type) const override;
    std::optional<QByteArray> string() const override;
    void clearContents() override;
    void setString(const QByteArray& text) override;
    void setData(ImageType type, const QByteArray& bytes) override;

private:
    void* m_pasteboard; ///< an NSPasteboard, retained
};

} // namespace zamber::macos
