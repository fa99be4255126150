#include "platform/linux/input-methods/ibus/IBusSettings.h"

#include <functional>
#include <utility>

#include "platform/linux/dbus/GLibRefs.h"

namespace quorvane {
namespace {

/// Null when no such key of that type is installed: GLib ends a program that takes one for granted.
GObjectRef<GSettings> settingsWith(const char* schemaName, const char* key, const GVariantType* type) {
    auto* installed = g_settings_schema_source_get_default();
    if (!installed) return nullptr;
    const GSettingsSchemaRef schema(g_settings_schema_source_lookup(installed, schemaName, TRUE));
    if (!schema || !g_settings_schema_has_key(schema.get(), key)) return nullptr;
    const GSettingsSchemaKeyRef schemaKey(g_settings_schema_get_key(schema.get(), key));
    if (!g_variant_type_equal(g_settings_schema_key_get_value_type(schemaKey.get()), type)) return nullptr;
    return GObjectRef<GSettings>(g_settings_new_full(schema.get(), nullptr, nullptr));
}

std::string stringAt(GVariant* container, gsize index) {
    const GVariantRef child(g_variant_get_child_value(container, index));
    return g_variant_get_string(child.get(), nullptr);
}

/// GLib ends the program with the session bus, unless the connection is told otherwise; and whoever follows
/// settings makes one, in a thread of its own. The last moment to tell it is the one in which it closes.
void surviveEndOfSessionBus() {
    constexpr auto tell = +[](GSignalInvocationHint*, guint, const GValue* values, gpointer) -> gboolean {
        g_dbus_connection_set_exit_on_close(G_DBUS_CONNECTION(g_value_get_object(values)), FALSE);
        return TRUE; // The next one, too.
    };
    static const auto isTold [[maybe_unused]] = [] {
        g_type_class_ref(G_TYPE_DBUS_CONNECTION); // It has its signals from then on.
        return g_signal_add_emission_hook(g_signal_lookup("closed", G_TYPE_DBUS_CONNECTION), 0, tell, nullptr,
                                          nullptr);
    }();
}

} // namespace

/// One key that holds a list, and the wish to hear of its changes.
class IBusSettings::List {
public:
    List(const char* schema, const char* key, const char* type, std::function<void()> changed)
        : key_(key)
        , changed_(std::move(changed))
        , settings_(settingsWith(schema, key, G_VARIANT_TYPE(type))) {
        if (!settings_) return;
        const auto signal = std::string("changed::") + key;
        handler_ = g_signal_connect(settings_.get(), signal.c_str(), G_CALLBACK(&List::told), this);
    }
    ~List() {
        if (settings_) g_signal_handler_disconnect(settings_.get(), handler_);
    }
    List(const List&) = delete;
    List& operator=(const List&) = delete;

    /// Null when the key is not installed.
    GVariantRef value() const {
        return GVariantRef(settings_ ? g_settings_get_value(settings_.get(), key_) : nullptr);
    }

private:
    static void told(GSettings*, const char*, List* list) { list->changed_(); }

    const char* key_;
    std::function<void()> changed_;
    GObjectRef<GSettings> settings_;
    gulong handler_ = 0;
};

IBusSettings::IBusSettings() {
    surviveEndOfSessionBus();
    const auto changed = [this] { read(); };
    preloadEnginesList_ =
        std::make_unique<List>("org.freedesktop.ibus.general", "preload-engines", "as", changed);
    desktopSourcesList_ =
        std::make_unique<List>("org.gnome.desktop.input-sources", "sources", "a(ss)", changed);
    read(); // From now on changes are told.
}

IBusSettings::~IBusSettings() = default;

void IBusSettings::read() {
    preloadEngines_.clear();
    if (const auto value = preloadEnginesList_->value()) {
        for (gsize i = 0; i < g_variant_n_children(value.get()); ++i)
            preloadEngines_.push_back(stringAt(value.get(), i));
    }
    desktopSources_.clear();
    if (const auto value = desktopSourcesList_->value()) {
        for (gsize i = 0; i < g_variant_n_children(value.get()); ++i) {
            const GVariantRef source(g_variant_get_child_value(value.get(), i));
            desktopSources_.push_back({stringAt(source.get(), 0), stringAt(source.get(), 1)});
        }
    }
}

} // namespace quorvane
