#include "platform/linux/input-methods/ibus/IBusConnection.h"

#include <algorithm>
#include <utility>

#include "platform/linux/dbus/GLibRefs.h"

namespace quorvane {
namespace {

constexpr const char* busName = "org.freedesktop.IBus";
constexpr const char* objectPath = "/org/freedesktop/IBus";
constexpr const char* interfaceOfDaemon = "org.freedesktop.IBus";
constexpr const char* interfaceOfContext = "org.freedesktop.IBus.InputContext";
constexpr const char* interfaceOfProperties = "org.freedesktop.DBus.Properties";
constexpr int forEver = G_MAXINT; // milliseconds

std::string withoutPrefix(GError* error) {
    g_dbus_error_strip_remote_error(error);
    return error->message;
}

} // namespace

/// One connection, from the attempt to its end. GLib's calls back hold it weakly.
class IBusConnection::Bus {
public:
    explicit Bus(IBusConnection& ofOwner) : owner(ofOwner) {}
    ~Bus() {
        g_cancellable_cancel(cancellable.get());
        if (!connection) return;
        g_dbus_connection_signal_unsubscribe(connection.get(), subscription);
        g_dbus_connection_signal_unsubscribe(connection.get(), contextSubscription);
        g_signal_handler_disconnect(connection.get(), closedHandler);
        g_dbus_connection_close(connection.get(), nullptr, nullptr, nullptr);
    }
    Bus(const Bus&) = delete;
    Bus& operator=(const Bus&) = delete;

    using Weak = std::weak_ptr<Bus>;

    static void connect(const std::shared_ptr<Bus>& self, const std::string& address) {
        constexpr auto flags = GDBusConnectionFlags(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                                    G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
        g_dbus_connection_new_for_address(
            address.c_str(), flags, nullptr, self->cancellable.get(),
            [](GObject*, GAsyncResult* result, gpointer data) {
                const std::unique_ptr<Weak> weak(static_cast<Weak*>(data));
                GObjectRef<GDBusConnection> made(g_dbus_connection_new_for_address_finish(result, nullptr));
                const auto bus = weak->lock();
                if (!bus) return;
                if (!made) return bus->owner.lost();
                bus->use(std::move(made), bus);
                bus->owner.opened.emit();
            },
            new Weak(self));
    }

    IBusConnection& owner;
    GObjectRef<GCancellable> cancellable{g_cancellable_new()};
    GObjectRef<GDBusConnection> connection; ///< Null until it is made.

private:
    void use(GObjectRef<GDBusConnection> made, const Weak& self) {
        const auto deleteWeak = [](gpointer data) { delete static_cast<Weak*>(data); };
        connection = std::move(made);
        subscription = g_dbus_connection_signal_subscribe(
            connection.get(), nullptr, interfaceOfDaemon, "GlobalEngineChanged", objectPath, nullptr,
            G_DBUS_SIGNAL_FLAGS_NONE,
            [](GDBusConnection*, const char*, const char*, const char*, const char*, GVariant* arguments,
               gpointer data) {
                const auto bus = static_cast<Weak*>(data)->lock();
                if (!bus || !g_variant_is_of_type(arguments, G_VARIANT_TYPE("(s)"))) return;
                const char* engine = nullptr;
                g_variant_get(arguments, "(&s)", &engine);
                bus->owner.told(engine);
            },
            new Weak(self), deleteWeak);
        contextSubscription = g_dbus_connection_signal_subscribe(
            connection.get(), nullptr, interfaceOfContext, nullptr, nullptr, nullptr,
            G_DBUS_SIGNAL_FLAGS_NONE,
            [](GDBusConnection*, const char*, const char*, const char*, const char* name, GVariant* arguments,
               gpointer data) {
                if (const auto bus = static_cast<Weak*>(data)->lock())
                    bus->owner.contextSignal.emit(name, arguments);
            },
            new Weak(self), deleteWeak);
        constexpr auto closedWithoutWeak = +[](GDBusConnection*, gboolean, GError*, gpointer data) {
            if (const auto bus = static_cast<Weak*>(data)->lock()) bus->owner.lost();
        };
        closedHandler = g_signal_connect_data(
            connection.get(), "closed", G_CALLBACK(closedWithoutWeak), new Weak(self),
            [](gpointer data, GClosure*) { delete static_cast<Weak*>(data); }, GConnectFlags(0));
    }

    guint subscription = 0;
    guint contextSubscription = 0;
    gulong closedHandler = 0;
};

/// Who is to get an answer, for GLib to keep.
struct IBusConnection::Call {
    Bus::Weak bus;
    Answer answer;
};

IBusConnection::IBusConnection() {
    timer_.setSingleShot(true);
    timer_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { timePassed(); });
}

IBusConnection::~IBusConnection() = default;

void IBusConnection::open(const std::string& address) {
    close();
    address_ = address;
    bus_ = std::make_shared<Bus>(*this);
    Bus::connect(bus_, address);
}

void IBusConnection::close() {
    address_.clear();
    bus_.reset();
    watch_ = {};
    waitForNextDue();
}

void IBusConnection::lost() {
    close();
    closed.emit();
}

void IBusConnection::told(std::string_view engine) {
    const bool spokeAgain = watch_.heard(AnswerWatch::Time::clock::now());
    waitForNextDue();
    globalEngineChanged.emit(engine);
    if (spokeAgain) silenceEnded.emit();
}

void IBusConnection::ask(const char* property, Answer answer) {
    call(objectPath, interfaceOfProperties, "Get", g_variant_new("(ss)", interfaceOfDaemon, property),
         [answer = std::move(answer)](GVariant* value, std::string_view error) {
             if (!value || !g_variant_is_of_type(value, G_VARIANT_TYPE("(v)"))) return answer(nullptr, error);
             const GVariantRef boxed(g_variant_get_child_value(value, 0));
             const GVariantRef held(g_variant_get_variant(boxed.get()));
             answer(held.get(), error);
         });
}

void IBusConnection::setGlobalEngine(const std::string& engine, Answer answer) {
    call(objectPath, interfaceOfDaemon, "SetGlobalEngine", g_variant_new("(s)", engine.c_str()),
         std::move(answer));
}

void IBusConnection::createContext(Answer answer) {
    call(objectPath, interfaceOfDaemon, "CreateInputContext", g_variant_new("(s)", "quorvane"),
         std::move(answer));
}

void IBusConnection::callContext(const std::string& path, const char* method, GVariant* arguments,
                                 Answer answer) {
    if (!answer) answer = [](auto*, auto) {};
    call(path.c_str(), interfaceOfContext, method, arguments, std::move(answer));
}

void IBusConnection::call(const char* path, const char* interfaceName, const char* method,
                          GVariant* arguments, Answer answer) {
    if (!bus_ || !bus_->connection) {
        if (arguments) g_variant_unref(g_variant_ref_sink(arguments));
        return;
    }
    watch_.called(AnswerWatch::Time::clock::now());
    waitForNextDue();
    g_dbus_connection_call(
        bus_->connection.get(), busName, path, interfaceName, method, arguments, nullptr,
        G_DBUS_CALL_FLAGS_NO_AUTO_START, forEver, bus_->cancellable.get(),
        [](GObject* connection, GAsyncResult* result, gpointer data) {
            const std::unique_ptr<Call> call(static_cast<Call*>(data));
            GError* failure = nullptr;
            const GVariantRef value(
                g_dbus_connection_call_finish(G_DBUS_CONNECTION(connection), result, &failure));
            const GErrorRef error(failure);
            const auto bus = call->bus.lock();
            // An answer that never came, since the connection is gone, is no answer.
            if (!bus || (error && !g_dbus_error_is_remote_error(error.get()))) return;
            auto& owner = bus->owner;
            const bool spokeAgain = owner.watch_.answered(AnswerWatch::Time::clock::now());
            owner.waitForNextDue();
            call->answer(value.get(), error ? withoutPrefix(error.get()) : std::string());
            if (spokeAgain) owner.silenceEnded.emit();
        },
        new Call{bus_, std::move(answer)});
}

void IBusConnection::waitForNextDue() {
    const auto due = watch_.nextDue();
    if (!due) return timer_.stop();
    // Only later ones follow, so a timer that runs is early enough.
    if (timer_.isActive()) return;
    const auto wait = *due - AnswerWatch::Time::clock::now();
    timer_.start(std::max(std::chrono::milliseconds(0), std::chrono::ceil<std::chrono::milliseconds>(wait)));
}

void IBusConnection::timePassed() {
    switch (watch_.timePassed(AnswerWatch::Time::clock::now())) {
    case AnswerWatch::Due::ping:
        ask("GlobalEngine", [](auto*, auto) {});
        break;
    case AnswerWatch::Due::silence:
        silenceBegan.emit();
        break;
    case AnswerWatch::Due::nothing:
        break;
    }
    waitForNextDue();
}

} // namespace quorvane
