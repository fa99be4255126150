#include "platform/linux/input-methods/ibus/IBusSettings.h"

#include "platform/linux/dbus/GLibRefs.h"

#include <utility>

namespace quorvane {
namespace {

constexpr const char* preloadEnginesKey = "preload-engines";

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

IBusSettings::IBusSettings(std::function<void()> changed) : changed_(std::move(changed)) {
    surviveEndOfSessionBus();
    settings_ = settingsWith("org.freedesktop.ibus.general", preloadEnginesKey, G_VARIANT_TYPE("as"));
    if (!settings_) return;
    constexpr auto told = +[](GSettings*, const char*, IBusSettings* self) { self->changed_(); };
    handler_ = g_signal_connect(settings_.get(), "changed::preload-engines", G_CALLBACK(told), this);
    preloadEngines(); // Only from then on changes are told.
}

IBusSettings::~IBusSettings() {
    if (settings_) g_signal_handler_disconnect(settings_.get(), handler_);
}

std::vector<std::string> IBusSettings::preloadEngines() const {
    std::vector<std::string> names;
    if (!settings_) return names;
    const GVariantRef value(g_settings_get_value(settings_.get(), preloadEnginesKey));
    GVariantIter each;
    g_variant_iter_init(&each, value.get());
    const char* name = nullptr;
    while (g_variant_iter_next(&each, "&s", &name))
        names.emplace_back(name);
    return names;
}

} // namespace quorvane
