// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/links/LinkCharacters.h"
#include "platform/links/LinkScan.h"

#include <cstdint>
#include <cstdlib>

namespace {

void require(bool condition) {
    if (!condition) {
        std::abort();
    }
}

} // namespace

/// Any bytes as UTF-8 and as UTF-16: a link lies within the text, has an address that can be opened, and holds nothing
/// that ends one. (That the time grows with the length and no faster is the fuzzer's own time limit's to tell.)
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArrayView bytes(data, static_cast<qsizetype>(size));
    QString units(bytes.size() / 2, Qt::Uninitialized);
    for (qsizetype at = 0; at < units.size(); ++at) {
        units[at] = QChar(static_cast<ushort>(data[2 * at] | data[2 * at + 1] << 8));
    }
    for (const QString& text : {QString::fromUtf8(bytes), units}) {
        const auto found = zamber::links::LinkScan(text).first();
        if (found) {
            require(found->start >= 0 && found->length > 0 && found->start + found->length <= text.size());
            require(found->address.isValid() && !found->address.scheme().isEmpty());
            for (const uint character : QStringView(text).sliced(found->start, found->length).toUcs4()) {
                require(!zamber::links::endsAddress(character));
            }
        }
    }
    return 0;
}
