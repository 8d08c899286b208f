// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/freedesktop/selection/SelectionContent.h"

#include <QObject>

#include <functional>
#include <memory>
#include <vector>

namespace zamber::freedesktop::selection {

/// A content as other programs get it: the types that it is offered in, and its bytes in each of them. What has to be
/// converted is converted at the first request, off the main thread, and once for all requests.
class SelectionOffer final : public QObject {
    Q_OBJECT

public:
    SelectionOffer();
    ~SelectionOffer() override;

    /// Requests that wait for a conversion of the former content still get it.
    void setContent(const SelectionContent& content);

    /// The best first, as many programs take the first type that they know.
    std::vector<QByteArray> types() const;

    /// The types that a clipboard manager needs so that nothing is lost when it serves the content after this program.
    std::vector<QByteArray> typesToSave() const;

    struct Data {
        QByteArray type; ///< what the bytes are, which is not always what was asked for
        QByteArray bytes;
    };
    using Done = std::function<void(const std::optional<Data>&)>;

    /// Calls back in the call or later, on the same thread, unless this object has gone meanwhile; with nothing when
    /// the content cannot be had in that type.
    void convert(const QByteArray& type, const Done& done);

private:
    struct Conversion;

    std::optional<Data> immediately(const QByteArray& type);
    void convertImageOnce(ImageFormat format, const QByteArray& type, const Done& done);

    SelectionContent m_content;
    std::optional<QByteArray> m_latin1;                               // the text, once it was asked for so
    std::map<ImageFormat, std::shared_ptr<Conversion>> m_conversions; // of the content, under way
};

} // namespace zamber::freedesktop::selection
