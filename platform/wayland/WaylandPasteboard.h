// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/freedesktop/selection/SelectionOffer.h"
#include "platform/freedesktop/selection/SelectionPasteboard.h"
#include "platform/wayland/DataControl.h"
#include "platform/wayland/OfferReader.h"
#include "platform/wayland/OutgoingPipes.h"
#include "platform/wayland/OwnerProbe.h"

#include <functional>
#include <memory>
#include <optional>

namespace zamber::wayland {

class Connection;

/// The clipboard of a compositor that lets programs without a window control it.
///
/// Wayland reports an owner that has quit and one that has emptied the clipboard on purpose in the same way. In both
/// cases this program goes on serving the copy, unless it was marked as a secret.
class WaylandPasteboard final : public freedesktop::selection::SelectionPasteboard {
    Q_OBJECT

public:
    /// The compositor must offer data control. The copy that is on the clipboard at this moment counts as no change.
    explicit WaylandPasteboard(Connection& connection, OfferReader::AskForMark askForMark = {});
    ~WaylandPasteboard() override;

    void borrowPrimary(int changeCount, std::function<void()> done) override;
    void giveBackPrimary() override;

    /// To be called when the owner of the copy may have died without the compositor's noticing. A copy that nobody
    /// answers for is taken over, as after any other death of an owner.
    void checkOwner();

private:
    using SelectionContent = freedesktop::selection::SelectionContent;
    using CopyReader = freedesktop::selection::CopyReader;

    /// A copy of this program's on one of the two clipboards, or on its way there. The mark is a type that no other
    /// program's copy has, so that the compositor's report of our own copy is recognised.
    struct Publication {
        freedesktop::selection::SelectionOffer offer; // outlives the source, for programs that wait for a conversion
        QByteArray mark;
        std::unique_ptr<DataSource> source;
    };

    void publish(const SelectionContent& content) override;
    bool isPublishing() const override { return m_isPublishing; }
    bool isOwner() const override { return m_isEchoed; }
    bool hasOwner() const override { return m_hasOwner; }
    bool isFormerOwnerRunning() const override { return false; } // Wayland does not say which program the owner was

    void announce();
    void put(Publication& publication, DataControl::Selection selection, const SelectionContent& content);
    void serve(Publication& publication, const QByteArray& type, Descriptor writeTo);
    void handleChange(const std::shared_ptr<DataOffer>& offer, Counts counts);
    void handleCancelled(Publication& publication);

    Connection& m_connection;
    OfferReader::AskForMark m_askForMark;
    std::unique_ptr<DataControl> m_control;
    OutgoingPipes m_outgoing;
    Publication m_clipboard;
    Publication m_primary;
    std::shared_ptr<DataOffer> m_foreign; // the copy on the clipboard, if it is another program's
    std::unique_ptr<OwnerProbe> m_probe;  // of its owner
    std::optional<SelectionContent> m_toPublish;
    bool m_isPublishing = false; // until the compositor has reported the copy
    bool m_isEchoed = false;     // since the compositor has reported the copy
    bool m_hasOwner = false;
    std::uint64_t m_publications = 0;
};

} // namespace zamber::wayland
