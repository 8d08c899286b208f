// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/SystemSound.h"
#include "tests/fakes/Journal.h"

namespace zamber {

class FakeSystemSound final : public SystemSound {
public:
    explicit FakeSystemSound(Journal& journal)
        : m_journal(journal) {}

    void play(const QString& name) override { m_journal.note("sound " + name.toStdString()); }

private:
    Journal& m_journal;
};

} // namespace zamber
