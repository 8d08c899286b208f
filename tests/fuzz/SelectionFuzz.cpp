// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/selection/ImageFormat.h"
#include "platform/freedesktop/selection/ReadingPlan.h"
#include "platform/freedesktop/selection/SelectionText.h"
#include "platform/x11/SelectionProperty.h"

#include <QString>

#include <unicode/unistr.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <set>
#include <string>

namespace {

using namespace zamber::freedesktop::selection;
using namespace zamber::x11;

constexpr int FORMATS[] = {0, 8, 16, 32, 7, -32};
constexpr xcb_atom_t TARGETS = 1000;

void require(bool condition) {
    if (!condition) {
        std::abort();
    }
}

/// The same repair by another implementation: broken sequences replaced.
std::string repairedByIcu(const QByteArray& bytes) {
    std::string repaired;
    icu::UnicodeString::fromUTF8({bytes.constData(), static_cast<std::int32_t>(bytes.size())}).toUTF8String(repaired);
    return repaired;
}

void tryAsText(const QByteArray& type, const QByteArray& bytes) {
    if (const auto text = textOf(type, bytes)) {
        const QByteArray string = bytes.endsWith('\0') ? bytes.chopped(1) : bytes;
        require(text->isValidUtf8());
        require(type != TYPE_STRING || *text == QString::fromLatin1(string).toUtf8());
        require(type != TYPE_UTF8_STRING || *text == QByteArray::fromStdString(repairedByIcu(string)));
        // One byte a character, the same where Latin-1 has it.
        const auto characters = QString::fromUtf8(*text).toUcs4();
        const auto latin1 = latin1FromUtf8(*text);
        require(latin1.size() == characters.size());
        for (qsizetype i = 0; i < characters.size(); ++i) {
            const auto expected = characters[i] <= 0xff ? characters[i] : static_cast<unsigned>('?');
            require(static_cast<unsigned char>(latin1[i]) == expected);
        }
    }
    latin1FromUtf8(bytes);
}

/// The bytes as names, a line each.
void tryAsTypes(const QByteArray& bytes) {
    const QList<QByteArray> lines = bytes.split('\n');
    const std::vector<QByteArray> offered(lines.begin(), lines.end());
    const ReadingPlan plan = planReading(offered);
    const auto isOffered = [&](const QByteArray& type) { return std::ranges::find(offered, type) != offered.end(); };
    for (const auto& asked : {plan.candidates, plan.filesBeside}) {
        require(std::ranges::all_of(asked, isOffered));
        require(std::set(asked.begin(), asked.end()).size() == asked.size());
    }
    require(!plan.textBesideImage || isOffered(*plan.textBesideImage));
    require(plan.mayBeSecret == isOffered(TYPE_PASSWORD_MANAGER_HINT.toByteArray()));
    require(std::ranges::any_of(offered, isImageType) == std::ranges::any_of(plan.candidates, isImageType));
    for (const QByteArray& type : offered) {
        isDocumentType(type);
        saysCut(type, bytes);
    }
}

} // namespace

/// An answer of another program: the first byte chooses its type, the second the format of its property.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 2) {
        return 0;
    }
    const QByteArray bytes(reinterpret_cast<const char*>(data + 2), static_cast<qsizetype>(size - 2));
    const QByteArray type = data[0] < TEXT_TYPES.size() ? TEXT_TYPES[data[0]].toByteArray()
                                                        : bytes.first(std::min<qsizetype>(bytes.size(), 9));
    tryAsText(type, bytes);
    tryAsTypes(bytes);
    const Property property{.type = data[0] % 2 == 0 ? xcb_atom_t{XCB_ATOM_ATOM} : TARGETS,
                            .format = FORMATS[data[1] % std::size(FORMATS)],
                            .bytes = bytes};
    require(numbersOf(property).size() == (property.format == 32 ? (size - 2) / 4 : 0));
    const auto targets = offeredTargets(property, TARGETS);
    require(targets.has_value() == (property.format == 32));
    require(!targets || targets->size() == std::min(MOST_TARGETS, (size - 2) / 4));
    require(!saysSecret(bytes) || bytes.size() == 6);
    require(hasFormat(bytes, ImageFormat::Png) + hasFormat(bytes, ImageFormat::Tiff) +
                hasFormat(bytes, ImageFormat::Bmp) <=
            1);
    return 0;
}
