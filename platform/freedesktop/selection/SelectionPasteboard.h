// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Pasteboard.h"
#include "platform/freedesktop/selection/CopyReader.h"
#include "platform/freedesktop/selection/OwnWrites.h"
#include "platform/freedesktop/selection/TakeOver.h"

#include <QElapsedTimer>
#include <QTimer>

#include <cstdint>
#include <functional>
#include <memory>

namespace zamber::freedesktop::selection {

/// A clipboard that programs promise each other the content of, as a pasteboard: a change counts when its content is
/// completely here, and what was copied outlives the program that it was copied from. How the owner is asked and how a
/// content is offered to others is the windowing system's, in a class derived from this one.
class SelectionPasteboard : public QObject, public Pasteboard {
    Q_OBJECT

public:
    int changeCount() const final { return m_changeCount; }
    std::optional<QByteArray> data(ImageType type) const final;
    std::optional<QByteArray> string() const final { return m_content.text; }
    void clearContents() final;
    void setString(const QByteArray& text) final;
    void setData(ImageType type, const QByteArray& bytes) final;

    /// How what this program wrote at that change count stands with the other programs.
    enum class Standing {
        Offered, ///< every program that pastes gets it
        Pending, ///< not yet, or not any more: `offer` may bring it back
        Lost,    ///< another program has copied since
    };
    Standing standingOf(int changeCount) const;

    /// Puts what was written at that change count on the clipboard, where it is not there and not lost; the program
    /// itself goes on seeing its last write. `ownershipChanged` tells when it has been done.
    void offer(int changeCount);

    /// From here on writes of this program are for itself alone; `showWrites` ends that and offers the last of them.
    void holdWrites() { m_areWritesHeld = true; }
    void showWrites();

    /// Offers what was written at that change count as the PRIMARY selection too, for programs that paste only that.
    /// Calls back when it is there. `giveBackPrimary` offers again what was there before.
    virtual void borrowPrimary(int changeCount, std::function<void()> done) = 0;
    virtual void giveBackPrimary() = 0;

Q_SIGNALS:
    /// What `standingOf` tells may have changed.
    void ownershipChanged();

    /// A program has got the clipboard's content, or PRIMARY's, from us: that of this window, or 0 where nobody knows.
    void served(std::uint32_t window);

protected:
    enum class Counts { AsChange, NotAtAll };
    using MakeReader = std::function<std::unique_ptr<QObject>(CopyReader::Tell tell)>;

    SelectionPasteboard();

    /// Offers the content to the other programs, now or soon; what was to be offered and is not yet gives way to it.
    virtual void publish(const SelectionContent& content) = 0;
    virtual bool isPublishing() const = 0; ///< a content is on its way to being offered
    virtual bool isOwner() const = 0;      ///< of the clipboard, as far as is known here
    virtual bool hasOwner() const = 0;     ///< does anybody own it?
    virtual bool isFormerOwnerRunning() const = 0;

    /// Another program owns the clipboard. The reader reads what it offers, and is made when the one before it is gone.
    void startReading(const MakeReader& makeReader, Counts counts);
    void handleLoss(OwnerLoss loss); ///< nobody owns it any more
    void handleCleared();            ///< and nobody will: a change, to nothing
    void handleOwnEcho();            ///< what this program has published has come back; others before it have lost
    void noteOffered() { m_sinceOffer.start(); } ///< what was published is offered now
    void endPublishing();                        ///< whether it is offered or has been overtaken

    /// What this program wrote is on its way to being offered, so that others' changes that are told are older.
    bool isWriteOnItsWay() const;
    bool isReading() const { return m_reader || m_readerOfMore; }
    bool isUntouched() const { return !m_reader && m_source == ContentSource::Nothing; }
    bool holdsContent() const { return m_source == ContentSource::Foreign || m_source == ContentSource::Ourselves; }

    /// What was written then, or is held now where that is forgotten.
    const SelectionContent& contentAt(int changeCount) const;

    /// For the end of a derived class, before what its readers use is gone.
    void stopReading();

    /// Nothing is being read any more, or not needed.
    virtual void handleSettled() {}

private:
    void write(const SelectionContent& content);
    void put(const SelectionContent& content);
    void handleReading(const CopyReader::Outcome& outcome, Counts counts);
    void handleMore(const CopyReader::Arrived& more);
    void retire(std::unique_ptr<QObject> reader);
    void handleContent(const SelectionContent& content, Counts counts);
    void countAgain();
    void takeOver();

    int m_changeCount = 0;
    SelectionContent m_content;
    ContentSource m_source = ContentSource::Nothing;
    OwnWrites m_writes;
    int m_offered = 0;               // the change count of the write that others see
    bool m_isOfferedByOther = false; // who has taken it from us
    bool m_areWritesHeld = false;
    bool m_isTakingOver = false;
    QElapsedTimer m_sinceOffer;
    QElapsedTimer m_sinceCounted;
    QTimer m_countAgain;
    std::unique_ptr<QObject> m_reader;       // of the content
    std::unique_ptr<QObject> m_readerOfMore; // which has come, of what is only to be served on
    TakeOver m_takeOver;
    QTimer m_takeOverDelay;
    QElapsedTimer m_sinceLoss;
};

} // namespace zamber::freedesktop::selection
