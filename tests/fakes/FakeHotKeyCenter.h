// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/HotKeyCenter.h"
#include "tests/fakes/Journal.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace zamber {

class FakeHotKeyCenter final : public HotKeyCenter {
public:
    struct Registration {
        PhysicalKey key;
        HotKeyModifiers modifiers;
        HotKeyId id;
    };

    explicit FakeHotKeyCenter(Journal& journal)
        : m_journal(journal) {}

    QString commandKeyHint() const override { return QStringLiteral("⌘ is Command"); }

    std::optional<HotKeyRef> registerHotKey(PhysicalKey key, HotKeyModifiers modifiers, HotKeyId id) override {
        m_journal.note("register hot key " + std::to_string(id.id));
        if (std::ranges::find(m_taken, key) != m_taken.end()) {
            return std::nullopt;
        }
        registrations.push_back({key, modifiers, id});
        return HotKeyRef{.id = id.id};
    }

    void setPressedHandler(PressedHandler handler) override { m_handler = std::move(handler); }

    /// Another program holds the combinations of that key.
    void takeElsewhere(PhysicalKey key) { m_taken.push_back(key); }

    /// The user presses Command, Shift and that key.
    void press(PhysicalKey key) {
        for (const Registration& registration : registrations) {
            if (registration.key == key && m_handler) {
                m_handler(registration.id.id);
            }
        }
    }

    /// A press with an id that was never registered.
    void pressUnknown(std::uint32_t id) {
        if (m_handler) {
            m_handler(id);
        }
    }

    std::vector<Registration> registrations;

private:
    Journal& m_journal;
    std::vector<PhysicalKey> m_taken;
    PressedHandler m_handler;
};

} // namespace zamber
