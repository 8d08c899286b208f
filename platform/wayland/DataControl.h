// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/wayland/Descriptor.h"

#include <QByteArray>
#include <QObject>

#include <functional>
#include <memory>
#include <vector>

namespace zamber::wayland {

class Connection;

/// A copy on the clipboard, of another program or of this one. Its content can be requested until the clipboard
/// changes.
class DataOffer {
public:
    virtual ~DataOffer() = default;

    /// The types of the copy, in the owner's order.
    virtual const std::vector<QByteArray>& types() const = 0;

    /// Asks the owner to write its bytes of that type into the file and to close it. The owner gets a duplicate of the
    /// descriptor, so that the caller has its own to close.
    virtual void receive(const QByteArray& type, int descriptor) = 0;
};

/// A copy of this program's, on offer for as long as this object lives.
class DataSource {
public:
    virtual ~DataSource() = default;

    struct Handlers {
        std::function<void(const QByteArray& type, Descriptor writeTo)> send; ///< a program asks for the content
        std::function<void()> cancelled; ///< another copy has replaced it; may destroy this object
    };
};

/// The clipboard by the protocols ext-data-control-v1 and wlr-data-control-unstable-v1. They need neither a window nor
/// the focus, and report the changes of all programs, this one's included.
class DataControl : public QObject {
    Q_OBJECT

public:
    enum class Selection { Clipboard, Primary };

    /// Takes the first of the two protocols that the compositor has; null where it has neither, or no seat.
    static std::unique_ptr<DataControl> create(Connection& connection);

    /// Whether `create` would not return null.
    static bool isOffered(const Connection& connection);

    /// Replaces the copy on the clipboard by one of these types. Null, with PRIMARY unchanged, where the compositor
    /// lets no program change PRIMARY.
    virtual std::unique_ptr<DataSource> offer(Selection selection, const std::vector<QByteArray>& types,
                                              DataSource::Handlers handlers) = 0;

Q_SIGNALS:
    /// The copy that is on the clipboard now; null when it is empty. Emitted at the start, too, unless the clipboard is
    /// empty then.
    void clipboardChanged(const std::shared_ptr<zamber::wayland::DataOffer>& offer);

    /// The same for PRIMARY.
    void primaryChanged(const std::shared_ptr<zamber::wayland::DataOffer>& offer);
};

} // namespace zamber::wayland
