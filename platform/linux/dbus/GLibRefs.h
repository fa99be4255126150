#pragma once

#include <memory>

#include <gio/gio.h>

namespace quorvane {

struct GObjectDeleter {
    void operator()(gpointer object) const { g_object_unref(object); }
};
struct GCharsDeleter {
    void operator()(char* chars) const { g_free(chars); }
};
struct GVariantDeleter {
    void operator()(GVariant* value) const { g_variant_unref(value); }
};
struct GErrorDeleter {
    void operator()(GError* error) const { g_error_free(error); }
};
struct GSettingsSchemaDeleter {
    void operator()(GSettingsSchema* schema) const { g_settings_schema_unref(schema); }
};
struct GSettingsSchemaKeyDeleter {
    void operator()(GSettingsSchemaKey* key) const { g_settings_schema_key_unref(key); }
};

/// Each owns one reference.
template <class Object>
using GObjectRef = std::unique_ptr<Object, GObjectDeleter>;
using GCharsRef = std::unique_ptr<char, GCharsDeleter>;
using GVariantRef = std::unique_ptr<GVariant, GVariantDeleter>;
using GErrorRef = std::unique_ptr<GError, GErrorDeleter>;
using GSettingsSchemaRef = std::unique_ptr<GSettingsSchema, GSettingsSchemaDeleter>;
using GSettingsSchemaKeyRef = std::unique_ptr<GSettingsSchemaKey, GSettingsSchemaKeyDeleter>;

} // namespace quorvane
