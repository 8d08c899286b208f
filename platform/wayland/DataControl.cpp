// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#include "platform/wayland/DataControl.h"

#include "platform/wayland/Connection.h"
#include "platform/wayland/Proxy.h"

#include <ext-data-control-v1.h>
#include <wlr-data-control-unstable-v1.h>

#include <utility>

namespace zamber::wayland {

namespace {

/// The two protocols have the same requests and events, under names of their own.
struct Ext {
    using Manager = ext_data_control_manager_v1;
    using Device = ext_data_control_device_v1;
    using Source = ext_data_control_source_v1;
    using Offer = ext_data_control_offer_v1;
    using DeviceListener = ext_data_control_device_v1_listener;
    using SourceListener = ext_data_control_source_v1_listener;
    using OfferListener = ext_data_control_offer_v1_listener;
    static constexpr const wl_interface& INTERFACE = ext_data_control_manager_v1_interface;
    static constexpr std::uint32_t NEWEST_VERSION = 1;
    static constexpr std::uint32_t VERSION_WITH_PRIMARY = 1;
    static constexpr auto getDevice = &ext_data_control_manager_v1_get_data_device;
    static constexpr auto createSource = &ext_data_control_manager_v1_create_data_source;
    static constexpr auto setSelection = &ext_data_control_device_v1_set_selection;
    static constexpr auto setPrimary = &ext_data_control_device_v1_set_primary_selection;
    static constexpr auto deviceVersion = &ext_data_control_device_v1_get_version;
    static constexpr auto listenToDevice = &ext_data_control_device_v1_add_listener;
    static constexpr auto listenToSource = &ext_data_control_source_v1_add_listener;
    static constexpr auto listenToOffer = &ext_data_control_offer_v1_add_listener;
    static constexpr auto offerType = &ext_data_control_source_v1_offer;
    static constexpr auto receive = &ext_data_control_offer_v1_receive;
};

struct Wlr {
    using Manager = zwlr_data_control_manager_v1;
    using Device = zwlr_data_control_device_v1;
    using Source = zwlr_data_control_source_v1;
    using Offer = zwlr_data_control_offer_v1;
    using DeviceListener = zwlr_data_control_device_v1_listener;
    using SourceListener = zwlr_data_control_source_v1_listener;
    using OfferListener = zwlr_data_control_offer_v1_listener;
    static constexpr const wl_interface& INTERFACE = zwlr_data_control_manager_v1_interface;
    static constexpr std::uint32_t NEWEST_VERSION = 2;
    static constexpr std::uint32_t VERSION_WITH_PRIMARY = 2;
    static constexpr auto getDevice = &zwlr_data_control_manager_v1_get_data_device;
    static constexpr auto createSource = &zwlr_data_control_manager_v1_create_data_source;
    static constexpr auto setSelection = &zwlr_data_control_device_v1_set_selection;
    static constexpr auto setPrimary = &zwlr_data_control_device_v1_set_primary_selection;
    static constexpr auto deviceVersion = &zwlr_data_control_device_v1_get_version;
    static constexpr auto listenToDevice = &zwlr_data_control_device_v1_add_listener;
    static constexpr auto listenToSource = &zwlr_data_control_source_v1_add_listener;
    static constexpr auto listenToOffer = &zwlr_data_control_offer_v1_add_listener;
    static constexpr auto offerType = &zwlr_data_control_source_v1_offer;
    static constexpr auto receive = &zwlr_data_control_offer_v1_receive;
};

template <class Protocol>
class OfferBy final : public DataOffer {
public:
    OfferBy(Connection& connection, typename Protocol::Offer* offer)
        : m_connection(connection)
        , m_offer(offer) {
        static constexpr typename Protocol::OfferListener LISTENER{
            .offer = [](void* self, typename Protocol::Offer*, const char* type) {
                static_cast<OfferBy*>(self)->m_types.emplace_back(type);
            }};
        Protocol::listenToOffer(offer, &LISTENER, this);
    }

    typename Protocol::Offer* raw() const { return m_offer.get(); }
    const std::vector<QByteArray>& types() const override { return m_types; }

    void receive(const QByteArray& type, int descriptor) override {
        Protocol::receive(m_offer.get(), type.constData(), descriptor);
        m_connection.flush();
    }

private:
    Connection& m_connection;
    Proxy<typename Protocol::Offer> m_offer;
    std::vector<QByteArray> m_types;
};

template <class Protocol>
class SourceBy final : public DataSource {
public:
    SourceBy(typename Protocol::Source* source, const std::vector<QByteArray>& types, Handlers handlers)
        : m_source(source)
        , m_handlers(std::move(handlers)) {
        static constexpr typename Protocol::SourceListener LISTENER{
            .send = [](void* self, typename Protocol::Source*, const char* type,
                       int descriptor) { static_cast<SourceBy*>(self)->m_handlers.send(type, Descriptor(descriptor)); },
            .cancelled =
                [](void* self, typename Protocol::Source*) {
                    // A copy of the handler, since the call may destroy the object that holds it.
                    const auto cancelled = static_cast<SourceBy*>(self)->m_handlers.cancelled;
                    cancelled();
                }};
        Protocol::listenToSource(source, &LISTENER, this);
        for (const QByteArray& type : types) {
            Protocol::offerType(source, type.constData());
        }
    }

    typename Protocol::Source* raw() const { return m_source.get(); }

private:
    Proxy<typename Protocol::Source> m_source;
    Handlers m_handlers;
};

template <class Protocol>
class DataControlBy final : public DataControl {
public:
    explicit DataControlBy(Connection& connection)
        : m_connection(connection)
        , m_manager(connection.bind<typename Protocol::Manager>(Protocol::INTERFACE, Protocol::NEWEST_VERSION))
        , m_device(Protocol::getDevice(m_manager.get(), connection.seat())) {
        static constexpr typename Protocol::DeviceListener LISTENER{
            .data_offer = [](void* self, typename Protocol::Device*,
                             typename Protocol::Offer* offer) { static_cast<DataControlBy*>(self)->noteOffer(offer); },
            .selection =
                [](void* self, typename Protocol::Device*, typename Protocol::Offer* offer) {
                    auto& control = *static_cast<DataControlBy*>(self);
                    Q_EMIT control.clipboardChanged(control.take(offer));
                },
            .finished = [](void*, typename Protocol::Device*) {}, // no event follows this one
            .primary_selection =
                [](void* self, typename Protocol::Device*, typename Protocol::Offer* offer) {
                    auto& control = *static_cast<DataControlBy*>(self);
                    Q_EMIT control.primaryChanged(control.take(offer));
                }};
        Protocol::listenToDevice(m_device.get(), &LISTENER, this);
        connection.flush();
    }

    std::unique_ptr<DataSource> offer(Selection selection, const std::vector<QByteArray>& types,
                                      DataSource::Handlers handlers) override {
        const bool hasPrimary = Protocol::deviceVersion(m_device.get()) >= Protocol::VERSION_WITH_PRIMARY;
        if (selection == Selection::Primary && !hasPrimary) {
            return nullptr;
        }
        auto source =
            std::make_unique<SourceBy<Protocol>>(Protocol::createSource(m_manager.get()), types, std::move(handlers));
        (selection == Selection::Primary ? Protocol::setPrimary : Protocol::setSelection)(m_device.get(),
                                                                                          source->raw());
        m_connection.flush();
        return source;
    }

private:
    using Offer = OfferBy<Protocol>;

    void noteOffer(typename Protocol::Offer* offer) {
        m_announced = std::make_shared<Offer>(m_connection, offer); // its types follow, then which clipboard it is on
    }

    std::shared_ptr<DataOffer> take(typename Protocol::Offer* offer) {
        const auto announced = std::exchange(m_announced, nullptr);
        return announced && offer != nullptr && announced->raw() == offer ? announced : nullptr;
    }

    Connection& m_connection;
    Proxy<typename Protocol::Manager> m_manager;
    Proxy<typename Protocol::Device> m_device;
    std::shared_ptr<Offer> m_announced;
};

} // namespace

bool DataControl::isOffered(const Connection& connection) {
    return connection.seat() != nullptr && (connection.offers(Ext::INTERFACE) || connection.offers(Wlr::INTERFACE));
}

std::unique_ptr<DataControl> DataControl::create(Connection& connection) {
    if (!isOffered(connection)) {
        return nullptr;
    }
    if (connection.offers(Ext::INTERFACE)) {
        return std::make_unique<DataControlBy<Ext>>(connection);
    }
    return std::make_unique<DataControlBy<Wlr>>(connection);
}

} // namespace zamber::wayland
