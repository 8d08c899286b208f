// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/selection/ReadingPlan.h"

#include <algorithm>
#include <ranges>

namespace zamber::freedesktop::selection {

namespace {

std::vector<QByteArray> offeredAmong(const auto& types, const std::vector<QByteArray>& offered) {
    std::vector<QByteArray> found;
    for (const QByteArrayView type : types) {
        if (std::ranges::find(offered, type) != offered.end()) {
            found.push_back(type.toByteArray());
        }
    }
    return found;
}

void append(std::vector<QByteArray>& list, const auto& more) {
    std::ranges::copy(more, std::back_inserter(list));
}

} // namespace

ReadingPlan planReading(const std::optional<std::vector<QByteArray>>& offered) {
    ReadingPlan plan;
    if (!offered) {
        // The two names that programs older than MIME types know.
        plan.candidates = {TYPE_UTF8_STRING.toByteArray(), TYPE_STRING.toByteArray()};
        return plan;
    }
    plan.mayBeSecret = !offeredAmong(std::array{TYPE_PASSWORD_MANAGER_HINT}, *offered).empty();

    const std::vector<QByteArray> images = offeredAmong(IMAGE_TYPES, *offered);
    const std::vector<QByteArray> texts = offeredAmong(TEXT_TYPES, *offered);
    if (!texts.empty() && std::ranges::any_of(*offered, isDocumentType)) {
        append(plan.candidates, texts);
        append(plan.candidates, images);
    } else {
        // After the best image comes the text: an owner that does not give that image will not give another one.
        append(plan.candidates, images | std::views::take(1));
        append(plan.candidates, texts);
        append(plan.candidates, images | std::views::drop(1));
    }
    if (!images.empty() && !texts.empty()) {
        plan.textBesideImage = texts.front();
    }

    const std::vector<QByteArray> ofFileManagers = offeredAmong(FILE_MANAGER_TYPES, *offered);
    const std::vector<QByteArray> uris = offeredAmong(std::array{TYPE_URI_LIST}, *offered);
    if (!ofFileManagers.empty() || !uris.empty()) {
        append(plan.filesBeside, offeredAmong(std::array{TYPE_KDE_CUT_MARK}, *offered));
        append(plan.filesBeside, ofFileManagers);
        append(plan.filesBeside, uris);
    }
    return plan;
}

} // namespace zamber::freedesktop::selection
