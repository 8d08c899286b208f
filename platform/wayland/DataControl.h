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

/// What another program, or this one, offers on the clipboard. It can be asked for until the clipboard changes.
class DataOffer {
public:
    virtual ~DataOffer() = default;

    /// In the owner's order.
    virtual const std::vector<QByteArray>& types() const = 0;

    /// Has the owner write its bytes of that type, and then close. The descriptor is sent on; ours is to be closed.
    virtual void receive(const QByteArray& type, int descriptor) = 0;
};

/// What this program offers, for as long as this object lives.
class DataSource {
public:
    virtual ~DataSource() = default;

    struct Handlers {
        std::function<void(const QByteArray& type, Descriptor writeTo)> send; ///< somebody asks
        std::function<void()> cancelled; ///< somebody else's is offered instead; may drop this object
    };
};

/// The clipboard as the protocols ext-data-control-v1 and wlr-data-control-unstable-v1 show it: without a window,
/// without the focus, and with everybody's changes, our own included.
class DataControl : public QObject {
    Q_OBJECT

public:
    enum class Selection { Clipboard, Primary };

    /// By the one protocol or the other; null where the compositor has neither, or no seat.
    static std::unique_ptr<DataControl> create(Connection& connection);

    /// Whether `create` would make one.
    static bool isOffered(const Connection& connection);

    /// Offers these types instead of whatever is offered. PRIMARY is left alone where the compositor lets no program
    /// change it; the result is null then.
    virtual std::unique_ptr<DataSource> offer(Selection selection, const std::vector<QByteArray>& types,
                                              DataSource::Handlers handlers) = 0;

Q_SIGNALS:
    /// Whose the clipboard is now; null for nobody's. Told at the start, too, if it is somebody's then.
    void clipboardChanged(const std::shared_ptr<zamber::wayland::DataOffer>& offer);

    /// The same of PRIMARY.
    void primaryChanged(const std::shared_ptr<zamber::wayland::DataOffer>& offer);
};

} // namespace zamber::wayland
