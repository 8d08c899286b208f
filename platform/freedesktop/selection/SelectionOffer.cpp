// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/selection/SelectionOffer.h"

#include "platform/freedesktop/selection/SelectionText.h"
#include "platform/freedesktop/selection/SelectionTypes.h"

#include <algorithm>
#include <array>
#include <new>
#include <utility>

namespace zamber::freedesktop::selection {

namespace {

struct OfferedImage {
    QByteArrayView type;
    ImageFormat format = ImageFormat::Png;
};

constexpr std::array OFFERED_IMAGES{
    OfferedImage{TYPE_PNG, ImageFormat::Png},
    OfferedImage{TYPE_TIFF, ImageFormat::Tiff},
    OfferedImage{TYPE_BMP, ImageFormat::Bmp},
};

constexpr std::array OFFERED_TEXTS{
    TYPE_UTF8_STRING, TYPE_TEXT_PLAIN_UTF8, TYPE_TEXT_PLAIN_UTF8_CAPITALS, TYPE_TEXT_PLAIN, TYPE_TEXT, TYPE_STRING};

std::optional<ImageFormat> offeredFormat(QByteArrayView type) {
    const auto* const found = std::ranges::find(OFFERED_IMAGES, type, &OfferedImage::type);
    return found == OFFERED_IMAGES.end() ? std::nullopt : std::optional(found->format);
}

} // namespace

/// An image on its way into another format, and the requests that wait for it.
struct SelectionOffer::Conversion {
    std::vector<std::function<void(const QByteArray&)>> waiting;
};

SelectionOffer::SelectionOffer() = default;
SelectionOffer::~SelectionOffer() = default;

void SelectionOffer::setContent(const SelectionContent& content) {
    m_content = content;
    m_latin1.reset();
    m_conversions.clear();
}

std::vector<QByteArray> SelectionOffer::types() const {
    std::vector<QByteArray> types;
    if (m_content.image) {
        for (const OfferedImage& image : OFFERED_IMAGES) {
            types.push_back(image.type.toByteArray());
        }
    }
    for (const auto& [type, bytes] : m_content.files) {
        types.push_back(type);
    }
    if (m_content.text) {
        for (const QByteArrayView text : OFFERED_TEXTS) {
            types.push_back(text.toByteArray());
        }
    }
    return types;
}

std::vector<QByteArray> SelectionOffer::typesToSave() const {
    std::vector<QByteArray> saved = types();
    // As PNG for the programs here, and as what it is; the rest can be had of these.
    std::erase_if(saved, [this](const QByteArray& type) {
        const std::optional<ImageFormat> format = offeredFormat(type);
        return format && format != ImageFormat::Png && !hasFormat(*m_content.image, *format);
    });
    return saved;
}

void SelectionOffer::convert(const QByteArray& type, const Done& done) {
    const std::optional<ImageFormat> format = m_content.image ? offeredFormat(type) : std::nullopt;
    if (!format) {
        done(immediately(type));
    } else if (*format == m_content.imageLabel || hasFormat(*m_content.image, *format)) {
        done(Data{.type = type, .bytes = *m_content.image});
    } else {
        convertImageOnce(*format, type, done);
    }
}

std::optional<SelectionOffer::Data> SelectionOffer::immediately(const QByteArray& type) {
    if (const auto file = m_content.files.find(type); file != m_content.files.end()) {
        return Data{.type = type, .bytes = file->second};
    }
    if (!m_content.text || std::ranges::find(OFFERED_TEXTS, type) == OFFERED_TEXTS.end()) {
        return std::nullopt;
    }
    if (type == TYPE_STRING) {
        try {
            m_latin1 = m_latin1 ? m_latin1 : latin1FromUtf8(*m_content.text);
        } catch (const std::bad_alloc&) {
            return std::nullopt;
        }
        return Data{.type = type, .bytes = *m_latin1};
    }
    // TEXT leaves the encoding to the owner; the type of the answer names it.
    return Data{.type = type == TYPE_TEXT ? TYPE_UTF8_STRING.toByteArray() : type, .bytes = *m_content.text};
}

void SelectionOffer::convertImageOnce(ImageFormat format, const QByteArray& type, const Done& done) {
    std::shared_ptr<Conversion>& conversion = m_conversions[format];
    const bool isUnderWay = conversion != nullptr;
    if (!isUnderWay) {
        conversion = std::make_shared<Conversion>();
    }
    conversion->waiting.emplace_back([type, done](const QByteArray& converted) {
        done(converted.isEmpty() ? std::nullopt : std::optional(Data{.type = type, .bytes = converted}));
    });
    if (isUnderWay) {
        return;
    }
    convertImage(*m_content.image, format, this, [this, format, conversion](const QByteArray& converted) {
        if (const auto found = m_conversions.find(format);
            found != m_conversions.end() && found->second == conversion) {
            m_conversions.erase(found);
        }
        for (const auto& waiting : std::exchange(conversion->waiting, {})) {
            waiting(converted);
        }
    });
}

} // namespace zamber::freedesktop::selection
