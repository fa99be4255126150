#include "platform/linux/dbus/BusMonitor.h"

#include <utility>

#include "platform/linux/Log.h"
#include "platform/linux/dbus/BusConnection.h"
#include "platform/linux/dbus/GLibRefs.h"
#include "platform/linux/dbus/SessionBusAddress.h"

namespace quorvane {
namespace {

const BusConnection::Interface monitoring{"/org/freedesktop/DBus", "org.freedesktop.DBus.Monitoring"};

std::string text(const char* orNull) {
    return orNull ? orNull : "";
}

std::vector<std::string> textsIn(GVariant* arguments) {
    std::vector<std::string> texts;
    const auto count = arguments ? g_variant_n_children(arguments) : 0;
    for (std::size_t place = 0; place < count; ++place) {
        const GVariantRef argument(g_variant_get_child_value(arguments, place));
        if (g_variant_is_of_type(argument.get(), G_VARIANT_TYPE_STRING))
            texts.emplace_back(g_variant_get_string(argument.get(), nullptr));
    }
    return texts;
}

} // namespace

/// A connection that serves for nothing else: a monitor may not send. GLib's thread holds this weakly.
class BusMonitor::Ear : public std::enable_shared_from_this<Ear> {
public:
    Ear(std::vector<std::string> matchRules, Heard heard)
        : rules_(std::move(matchRules))
        , heard_(std::move(heard)) {}
    ~Ear() {
        if (filter_ != 0) g_dbus_connection_remove_filter(bus_->native(), filter_);
    }
    Ear(const Ear&) = delete;
    Ear& operator=(const Ear&) = delete;

    void open(const std::string& address) {
        bus_ = std::make_unique<BusConnection>(
            address, BusConnection::Events{.opened = [this] { becomeMonitor(); }, .closed = {}});
    }

    bool isHearing() const { return isAllowed_ && bus_->isOpen(); }

private:
    using Weak = std::weak_ptr<Ear>;
    struct Post {
        Weak ear;
        GObjectRef<GDBusMessage> message;
    };

    void becomeMonitor() {
        filter_ = g_dbus_connection_add_filter(bus_->native(), pass, new Weak(weak_from_this()),
                                               [](gpointer data) { delete static_cast<Weak*>(data); });
        std::vector<const char*> rules;
        for (const auto& rule : rules_)
            rules.push_back(rule.c_str());
        rules.push_back(nullptr);
        bus_->call("org.freedesktop.DBus", monitoring, "BecomeMonitor",
                   g_variant_new("(^asu)", rules.data(), 0U), "()",
                   [this](GVariant* allowed, const GError* error) {
                       isAllowed_ = allowed != nullptr;
                       if (!allowed) logLine("the session bus allows no monitor: " + text(error->message));
                   });
    }

    /// In GLib's thread. What is heard goes no further on this connection, which would answer it.
    static GDBusMessage* pass(GDBusConnection* /*connection*/, GDBusMessage* message, gboolean isIncoming,
                              gpointer data) {
        const auto type = g_dbus_message_get_message_type(message);
        const bool isOfOthers = type == G_DBUS_MESSAGE_TYPE_SIGNAL || type == G_DBUS_MESSAGE_TYPE_METHOD_CALL;
        if (!isIncoming || !isOfOthers) return message;
        constexpr auto hear = +[](gpointer posted) -> gboolean {
            const auto& [ear, heard] = *static_cast<Post*>(posted);
            if (const auto alive = ear.lock()) alive->hear(heard.get());
            return G_SOURCE_REMOVE;
        };
        g_idle_add_full(G_PRIORITY_DEFAULT, hear,
                        new Post{*static_cast<Weak*>(data), GObjectRef<GDBusMessage>(message)},
                        [](gpointer posted) { delete static_cast<Post*>(posted); });
        return nullptr;
    }

    void hear(GDBusMessage* message) {
        if (!isAllowed_) return; // what the bus tells this connection itself
        heard_({text(g_dbus_message_get_sender(message)), text(g_dbus_message_get_destination(message)),
                text(g_dbus_message_get_path(message)), text(g_dbus_message_get_member(message)),
                textsIn(g_dbus_message_get_body(message))});
    }

    std::vector<std::string> rules_;
    Heard heard_;
    std::unique_ptr<BusConnection> bus_;
    unsigned filter_ = 0;
    bool isAllowed_ = false;
};

BusMonitor::BusMonitor(std::vector<std::string> matchRules, Heard heard)
    : ear_(std::make_shared<Ear>(std::move(matchRules), std::move(heard))) {
    ear_->open(sessionBusAddress());
}

BusMonitor::~BusMonitor() = default;

bool BusMonitor::isHearing() const {
    return ear_->isHearing();
}

} // namespace quorvane
