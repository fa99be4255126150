#include "platform/linux/input-methods/ibus/IBusInputSources.h"

#include <algorithm>
#include <clocale>
#include <libintl.h>
#include <utility>

#include "platform/linux/Log.h"
#include "platform/linux/input-methods/ibus/IBusEnabledEngines.h"
#include "platform/linux/keyboard/XkbLayout.h"

namespace quorvane {
namespace {

bool isLayoutID(std::string_view id) {
    return layoutOfID(id).has_value();
}

/// The engine's name in the user's language, if the engine came with that.
std::string nameOf(const IBusEngine& engine) {
    const auto& name = engine.longName.empty() ? engine.name : engine.longName;
    if (engine.textDomain.empty() || engine.longName.empty()) return name;
    bind_textdomain_codeset(engine.textDomain.c_str(), "UTF-8");
    return dgettext(engine.textDomain.c_str(), name.c_str());
}

} // namespace

IBusInputSources::IBusInputSources(LayoutSources& layouts, InputMethodIcons icons)
    : layouts_(layouts)
    , underneath_(layouts)
    , icons_(std::move(icons))
    , selection_({.set = [this](const std::string& engine) { setGlobalEngine(engine); },
                  .ask = [this] { askGlobalEngine(); }})
    , address_([this] { connectToDaemon(); }) {
    subscriptions_.push_back(connection_.opened.connect([this] {
        isStartedAnew_ = true;
        readEngines();
    }));
    subscriptions_.push_back(connection_.closed.connect([this] {
        setAvailable(false);
        selection_.forget();
    }));
    subscriptions_.push_back(connection_.silenceBegan.connect([this] {
        isStartedAnew_ = false;
        setAvailable(false);
    }));
    subscriptions_.push_back(connection_.silenceEnded.connect([this] { selection_.ask(); }));
    subscriptions_.push_back(connection_.globalEngineChanged.connect(
        [this](std::string_view engine) { selection_.heard(engine); }));
    subscriptions_.push_back(layouts_.selectionChanged.connect([this] { tellSelection(); }));
    connectToDaemon();
}

IBusInputSources::~IBusInputSources() = default;

/// To the daemon that wrote its address last.
void IBusInputSources::connectToDaemon() {
    const auto address = address_.current();
    if (address.empty() || address == connection_.address()) return;
    connection_.open(address);
    setAvailable(false);
    selection_.forget();
}

/// Other programs give themselves out as IBus, for the sake of IBus' clients. They have no list of engines.
void IBusInputSources::readEngines() {
    connection_.ask("Engines", [this](GVariant* list, std::string_view) {
        auto engines = IBusEngines::ofList(list);
        if (!engines) return connection_.close();
        engines_ = std::move(*engines);
        selection_.ask();
    });
}

void IBusInputSources::askGlobalEngine() {
    connection_.ask("GlobalEngine", [this](GVariant* described, std::string_view) {
        const auto engine = described ? engineOf(described) : std::nullopt;
        selection_.askAnswered(engine ? std::optional(engine->name) : std::nullopt);
        setAvailable(true);
        tellSelection();
    });
}

void IBusInputSources::setGlobalEngine(const std::string& engine) {
    connection_.setGlobalEngine(engine, [this, engine](GVariant* value, std::string_view error) {
        if (!value) logLine("IBus does not select " + engine + ": " + std::string(error));
        selection_.setAnswered(value != nullptr);
        tellSelection();
    });
}

void IBusInputSources::setAvailable(bool isAvailable) {
    if (std::exchange(isAvailable_, isAvailable) == isAvailable) return;
    if (isAvailable && !settings_) settings_.emplace();
    toldID_ = currentID(); // Who hears of the daemon asks for it.
    availabilityChanged.emit();
}

void IBusInputSources::tellSelection() {
    const auto id = currentID();
    if (std::exchange(toldID_, id) != id) selectionChanged.emit();
}

std::string IBusInputSources::currentID() const {
    const auto current = copyCurrentKeyboardInputSource();
    return current ? current->id : std::string();
}

void IBusInputSources::applicationActivated(const std::string& /*application*/, int /*process*/) {
    if (isAvailable_) selection_.restoreIfGone();
}

std::vector<const IBusEngine*> IBusInputSources::enabled() const {
    if (!isAvailable_) return {};
    IBusEnabledSettings settings{.preloadEngines = settings_->preloadEngines(),
                                 .desktopSources = settings_->desktopSources(),
                                 .layoutIDs = {},
                                 .locale = std::setlocale(LC_CTYPE, nullptr)};
    for (const auto& layout : layouts_.createInputSourceList())
        settings.layoutIDs.push_back(layout.id);
    return enabledEngines(engines_, settings);
}

/// A layout that the X server does not have cannot take effect: its list of layouts is the user's.
InputSource IBusInputSources::sourceOf(const std::string& id) const {
    return {.id = id, .isSelectCapable = !isLayoutID(id) || underneath_.has(id), .hasIconReference = true};
}

std::vector<InputSource> IBusInputSources::createInputSourceList(std::optional<std::string_view> id) const {
    std::vector<InputSource> list;
    for (const auto* engine : enabled()) {
        auto source = sourceOf(engine->id());
        if (!id || source.id == *id) list.push_back(std::move(source));
    }
    return list;
}

std::optional<InputSource> IBusInputSources::copyCurrentKeyboardInputSource() const {
    if (!isAvailable_) return std::nullopt;
    const auto& engine = selection_.current();
    const auto id = engine ? idOfEngine(*engine) : std::string();
    const bool isTypedByLayout = !engine || (isLayoutID(id) && !selection_.isUnderWay());
    return isTypedByLayout ? layouts_.copyCurrentKeyboardInputSource() : sourceOf(id);
}

std::optional<InputSource> IBusInputSources::copyCurrentKeyboardLayoutInputSource() const {
    return layouts_.copyCurrentKeyboardInputSource();
}

bool IBusInputSources::selectInputSource(const InputSource& source) {
    const auto engines = enabled();
    const auto engine = std::ranges::find(engines, source.id, &IBusEngine::id);
    if (engine == engines.end() || !sourceOf(source.id).isSelectCapable) return false;
    underneath_.prepareFor(source.id);
    selection_.select((*engine)->name);
    tellSelection();
    return true;
}

std::string IBusInputSources::localizedName(const InputSource& source) const {
    if (underneath_.has(source.id)) return layouts_.localizedName(source);
    const auto* engine = engines_.withID(source.id);
    return engine ? nameOf(*engine) : source.id;
}

ImageRef IBusInputSources::iconOfReference(const InputSource& source) const {
    if (underneath_.has(source.id)) return layouts_.iconOfReference(source);
    const auto* engine = engines_.withID(source.id);
    if (!engine) return nullptr;
    const auto& code = engine->language.empty() ? engine->name : engine->language;
    return icons_.iconOf({engine->icon, engine->symbol, code});
}

} // namespace quorvane
