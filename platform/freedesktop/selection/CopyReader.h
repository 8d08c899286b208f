// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/freedesktop/selection/ReadingPlan.h"
#include "platform/freedesktop/selection/SelectionContent.h"

#include <QObject>

#include <functional>
#include <variant>

namespace zamber::freedesktop::selection {

/// What the owner of a selection gave for one type.
struct OwnerAnswer {
    enum class Outcome {
        Delivered, ///< whole
        Refused,   ///< or not given by the rules
        Silent,    ///< nothing came for as long as one waits
        BrokenOff, ///< it began to come, and did not come to its end
    };

    Outcome outcome = Outcome::Refused;
    QByteArray type; ///< what the owner calls the bytes
    QByteArray bytes;
};

/// Asks a selection's owner for one type. The answer is called later, once, and not after the reader has gone.
using AskOwner = std::function<void(const QByteArray& type, std::function<void(const OwnerAnswer&)> answer)>;

/// Finds out what one copy holds: whether it is marked as a secret, its content by as few questions as possible, and
/// then what is kept of it only to be served when its owner has gone.
class CopyReader final : public QObject {
    Q_OBJECT

public:
    /// How many of the types that could become the content are tried.
    static constexpr int MOST_TRIES = 2;

    struct Arrived {
        SelectionContent content;
        bool isComplete = true; ///< otherwise it is told again with more
    };
    struct Secret {}; ///< marked as such; none of its data was asked for
    struct Failed {}; ///< the owner did not answer, or broke the rules
    using Outcome = std::variant<Arrived, Secret, Failed>;
    using Tell = std::function<void(const Outcome&)>;

    /// `tell` is called until the outcome is complete, and may then delete this object later.
    CopyReader(AskOwner ask, Tell tell);

    /// With the types that the copy is offered in; without them when the owner cannot tell.
    void begin(const std::optional<std::vector<QByteArray>>& offered);

private:
    void handleHint(const OwnerAnswer& answer);
    void askForNextCandidate();
    void handleCandidate(const QByteArray& asked, const OwnerAnswer& answer);
    void handleText(const OwnerAnswer& answer);
    void handleImage(const OwnerAnswer& answer);
    void handleArrival(SelectionContent content);
    void askForNextBeside();
    void handleBeside(const QByteArray& asked, const OwnerAnswer& answer);

    AskOwner m_ask;
    Tell m_tell;
    ReadingPlan m_plan;
    std::size_t m_tries = 0;
    std::optional<SelectionContent> m_doubtful; // an image that does not decode, for when there is nothing better
    SelectionContent m_content;
    std::vector<QByteArray> m_beside; // still to be asked for, the next one last
};

} // namespace zamber::freedesktop::selection
