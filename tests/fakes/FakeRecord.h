// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <expected>
#include <optional>

namespace zamber {

/// A desktop's record of one thing, for ports that read it by `status` and change it by calls that may fail.
template <class Port, class Status, Status atFirst>
class FakeRecord : public Port {
public:
    Status status() const override { return current; }

    Status current = atFirst;
    std::optional<QString> failure; ///< of every change, from now on
    int changesAsked = 0;

protected:
    std::expected<void, QString> change(Status status) {
        ++changesAsked;
        if (failure) {
            return std::unexpected(*failure);
        }
        current = status;
        return {};
    }
};

} // namespace zamber
