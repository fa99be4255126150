#include "platform/linux/dbus/BusConnection.h"

#include <utility>
#include <vector>

#include "platform/linux/dbus/GLibRefs.h"

namespace quorvane {
namespace {

constexpr int forEver = G_MAXINT; // milliseconds

} // namespace

/// GLib's calls back hold this weakly.
class BusConnection::State {
public:
    explicit State(Events ofOwner) : events(std::move(ofOwner)) {}
    ~State() {
        g_cancellable_cancel(cancellable.get());
        if (!connection) return;
        for (const auto watch : nameWatches)
            g_bus_unwatch_name(watch);
        for (const auto subscription : subscriptions)
            g_dbus_connection_signal_unsubscribe(connection.get(), subscription);
        g_signal_handler_disconnect(connection.get(), closedHandler);
        g_dbus_connection_close(connection.get(), nullptr, nullptr, nullptr);
    }
    State(const State&) = delete;
    State& operator=(const State&) = delete;

    /// What GLib keeps for a call back.
    template <class Handler>
    struct Call {
        std::weak_ptr<State> state;
        Handler handler;

        static void free(gpointer data) { delete static_cast<Call*>(data); }
    };
    using Event = Call<std::function<void()> Events::*>;
    using OwnerTold = Call<std::function<void(const std::string& owner)>>;

    static void tellOwner(gpointer data, const char* owner) {
        const auto& [weak, told] = *static_cast<OwnerTold*>(data);
        if (const auto state = weak.lock()) told(owner);
    }

    static void tell(gpointer data) {
        const auto& [weak, event] = *static_cast<Event*>(data);
        const auto state = weak.lock();
        if (const auto handler = state ? state->events.*event : nullptr) handler();
    }

    void use(GObjectRef<GDBusConnection> made, const std::weak_ptr<State>& self) {
        connection = std::move(made);
        constexpr auto wasClosed = +[](GDBusConnection*, gboolean, GError*, gpointer data) { tell(data); };
        closedHandler = g_signal_connect_data(
            connection.get(), "closed", G_CALLBACK(wasClosed), new Event{self, &Events::closed},
            [](gpointer data, GClosure*) { Event::free(data); }, GConnectFlags(0));
    }

    Events events;
    GObjectRef<GCancellable> cancellable{g_cancellable_new()};
    GObjectRef<GDBusConnection> connection; ///< Null until it is made.
    gulong closedHandler = 0;
    std::vector<guint> subscriptions, nameWatches;
};

BusConnection::BusConnection(const std::string& address, Events events)
    : state_(std::make_shared<State>(std::move(events))) {
    constexpr auto flags = GDBusConnectionFlags(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                                G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
    g_dbus_connection_new_for_address(
        address.c_str(), flags, nullptr, state_->cancellable.get(),
        [](GObject*, GAsyncResult* result, gpointer data) {
            const std::unique_ptr<State::Event> opened(static_cast<State::Event*>(data));
            GObjectRef<GDBusConnection> made(g_dbus_connection_new_for_address_finish(result, nullptr));
            const auto state = opened->state.lock();
            if (!state) return;
            if (made)
                state->use(std::move(made), state);
            else
                opened->handler = &Events::closed;
            State::tell(opened.get());
        },
        new State::Event{state_, &Events::opened});
}

BusConnection::~BusConnection() = default;

bool BusConnection::isOpen() const {
    return state_->connection && !g_dbus_connection_is_closed(state_->connection.get());
}

GDBusConnection* BusConnection::native() const {
    return state_->connection.get();
}

void BusConnection::call(const std::string& destination, const Interface& callee, const char* method,
                         GVariant* arguments, const char* form, Received received) {
    using Call = State::Call<Received>;
    g_dbus_connection_call(
        native(), destination.c_str(), callee.path.c_str(), callee.name.c_str(), method, arguments,
        G_VARIANT_TYPE(form), G_DBUS_CALL_FLAGS_NO_AUTO_START, forEver, state_->cancellable.get(),
        [](GObject* source, GAsyncResult* result, gpointer data) {
            const std::unique_ptr<Call> call(static_cast<Call*>(data));
            GError* failure = nullptr;
            const GVariantRef value(
                g_dbus_connection_call_finish(G_DBUS_CONNECTION(source), result, &failure));
            const GErrorRef error(failure);
            if (const auto state = call->state.lock()) call->handler(value.get(), error.get());
        },
        new Call{state_, std::move(received)});
}

void BusConnection::listen(const Interface& told, Heard heard) {
    using Call = State::Call<Heard>;
    state_->subscriptions.push_back(g_dbus_connection_signal_subscribe(
        native(), nullptr, told.name.c_str(), nullptr, told.path.empty() ? nullptr : told.path.c_str(),
        nullptr, G_DBUS_SIGNAL_FLAGS_NONE,
        [](GDBusConnection*, const char* sender, const char*, const char*, const char* signal,
           GVariant* arguments, gpointer data) {
            const auto& [weak, handler] = *static_cast<Call*>(data);
            if (const auto state = weak.lock()) handler(sender ? sender : "", signal, arguments);
        },
        new Call{state_, std::move(heard)}, Call::free));
}

void BusConnection::watchName(const std::string& name, std::function<void(const std::string& owner)> told) {
    state_->nameWatches.push_back(g_bus_watch_name_on_connection(
        native(), name.c_str(), G_BUS_NAME_WATCHER_FLAGS_NONE,
        [](GDBusConnection*, const char*, const char* owner, gpointer data) {
            State::tellOwner(data, owner);
        },
        [](GDBusConnection*, const char*, gpointer data) { State::tellOwner(data, ""); },
        new State::OwnerTold{state_, std::move(told)}, State::OwnerTold::free));
}

} // namespace quorvane
