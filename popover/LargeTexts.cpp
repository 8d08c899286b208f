// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "popover/LargeTexts.h"

#include <QMetaObject>

namespace zamber::popover {

LargeTexts::LargeTexts() {
    m_measurers.setMaxThreadCount(1);
}

LargeTexts::~LargeTexts() {
    m_measurers.clear();
}

bool LargeTexts::isMeasured(const clipboard::ClipboardItem& item) {
    if (item.content.isImage() || item.content.bytes().size() < LARGE_BYTES || m_measured.contains(item.id)) {
        return true;
    }
    if (!m_pending.contains(item.id)) {
        m_pending.insert(item.id);
        m_measurers.start([this, id = item.id, content = item.content] {
            content.lineCount();
            content.charCount();
            content.isSensitive();
            QMetaObject::invokeMethod(this, [this, id] {
                if (m_pending.remove(id)) {
                    m_measured.insert(id);
                    emit measured(id);
                }
            });
        });
    }
    return false;
}

void LargeTexts::keepOnly(const QList<clipboard::ClipboardItem>& items) {
    if (m_pending.isEmpty() && m_measured.isEmpty()) {
        return;
    }
    QSet<QUuid> kept;
    for (const clipboard::ClipboardItem& item : items) {
        kept.insert(item.id);
    }
    m_pending.intersect(kept);
    m_measured.intersect(kept);
}

} // namespace zamber::popover
