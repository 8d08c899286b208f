// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/StatusItem.h"

namespace zamber::macos {

/// A square in the system's menu bar. Clicks and chosen menu lines are actions without a target, which the
/// application's delegate receives along the responder chain.
class MacStatusItem final : public StatusItem {
public:
    MacStatusItem() = default;
    ~MacStatusItem() override;
    MacStatusItem(const MacStatusItem&) = delete;
    MacStatusItem& operator=(const MacStatusItem&) = delete;

    void showSymbol(const QString& symbol, const QString& accessibilityDescription) override;

    /// The anchor's handle is the item's button, a view.
    std::optional<Anchor> button() const override;
    void setClickedHandler(ClickedHandler handler) override;
    void showMenuOnce(const QList<MenuItem>& menu) override;

private:
    void* m_item = nullptr; ///< an NSStatusItem, retained
};

} // namespace zamber::macos
