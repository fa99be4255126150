#include "platform/linux/input-methods/ibus/IBusInputSources.h"

#include <libintl.h>
#include <utility>

#include "platform/linux/dbus/GLibRefs.h"
#include "platform/linux/input-methods/ibus/IBusNames.h"

namespace quorvane {
namespace {

/// The engine's name in the user's language, if the engine came with that.
std::string humanNameOf(const IBusEngine& engine) {
    if (engine.longName.empty()) return engine.name;
    if (engine.textDomain.empty()) return engine.longName;
    bind_textdomain_codeset(engine.textDomain.c_str(), "UTF-8");
    return dgettext(engine.textDomain.c_str(), engine.longName.c_str());
}

} // namespace

IBusInputSources::IBusInputSources(LayoutSources& layouts, InputMethodIcons icons)
    : DaemonInputSources(layouts, std::move(icons), TypesLayouts::server)
    , connection_(ibusName)
    , address_([this] { connectToDaemon(); }) {
    subscriptions_.push_back(connection_.cameAlive.connect([this] { cameAlive(); }));
    subscriptions_.push_back(connection_.wentAway.connect([this] {
        setAvailable(false);
        selection().giveUp();
        selectionMoved();
    }));
    subscriptions_.push_back(layouts.selectionChanged.connect([this] {
        if (settings_ && settings_->preloadEngines().empty()) readEngines();
    }));
    connection_.listen(ibusDaemon, [this](std::string_view signal, GVariant* arguments) {
        if (signal != "GlobalEngineChanged" || !g_variant_is_of_type(arguments, G_VARIANT_TYPE("(s)")))
            return;
        const char* engine = nullptr;
        g_variant_get(arguments, "(&s)", &engine);
        told(engine);
    });
    connectToDaemon();
}

/// To the daemon that wrote its address last.
void IBusInputSources::connectToDaemon() {
    const auto address = address_.current();
    if (!address.empty() && address != connection_.address()) connection_.open(address);
}

void IBusInputSources::cameAlive() {
    if (!settings_) settings_.emplace([this] { readEngines(); });
    readEngines();
}

/// Other programs give themselves out as IBus, for the sake of IBus' clients. They have no list of engines.
void IBusInputSources::readEngines() {
    connection_.read(ibusDaemon, "Engines", [this](GVariant* installed) {
        std::vector<std::string> layoutIDs;
        for (const auto& layout : layouts().createInputSourceList())
            layoutIDs.push_back(layout.id);
        const auto engines = enabledEngines(installed, settings_->preloadEngines(), layoutIDs);
        if (!engines) return connection_.close();
        std::vector<Method> methods;
        for (const auto& engine : *engines)
            methods.push_back(
                {idOf(engine.name),
                 engine.name,
                 humanNameOf(engine),
                 {engine.icon, engine.symbol, engine.language.empty() ? engine.name : engine.language}});
        setMethods(std::move(methods));
        startAhead(*engines);
        callLook();
    });
}

/// An engine's process would start at its first selection, and the first keys would be typed without it.
/// IBus' own panel does the same, where there is one.
void IBusInputSources::startAhead(const std::vector<IBusEngine>& engines) {
    if (settings_->preloadEngines().empty()) return;
    std::vector<const char*> names;
    names.reserve(engines.size());
    for (const auto& engine : engines)
        names.push_back(engine.name.c_str());
    connection_.write(ibusDaemon, "PreloadEngines", g_variant_new_strv(names.data(), gssize(names.size())));
}

void IBusInputSources::callLook() {
    connection_.read(ibusDaemon, "GlobalEngine", [this](GVariant* described) {
        const auto engine = described ? engineOf(described) : std::nullopt;
        told(engine ? engine->name : std::string());
        setAvailable(true);
    });
}

void IBusInputSources::callSelect(const std::string& ownName) {
    connection_.call(ibusDaemon, "SetGlobalEngine", g_variant_new("(s)", ownName.c_str()), "()",
                     [this](GVariant* done) {
                         selection().answered(done != nullptr);
                         selectionMoved();
                     });
    callLook();
}

/// Every program has the same engine, which always has the focus.
void IBusInputSources::told(const std::string& engine) {
    selection().told({"all", ContextSelection::anyProcess}, engine);
    selectionMoved();
}

/// Nobody is told when an engine dies. What was selected is selected again then.
void IBusInputSources::applicationActivated(const std::string& /*application*/, int /*process*/) {
    if (isAvailable()) callLook();
}

} // namespace quorvane
