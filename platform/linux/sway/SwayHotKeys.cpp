#include "platform/linux/sway/SwayHotKeys.h"

#include <algorithm>
#include <filesystem>
#include <utility>

#include <xkbcommon/xkbcommon.h>

#include "platform/GlobalEventMonitor.h"
#include "platform/linux/keyboard/KeyCodes.h"
#include "platform/linux/keyboard/XkbLayoutKeys.h"
#include "platform/linux/sway/SwayConfigFiles.h"

namespace quorvane {
namespace {

const QLatin1String commandPrefix("nop quorvane-hot-key-");
const QLatin1String defaultMode("default");

constexpr struct {
    std::uint64_t flag;
    std::uint16_t bit;
    const char* name;
} modifiers[] = {{ModifierFlag::shift, 1U << 0, "Shift+"},
                 {ModifierFlag::control, 1U << 2, "Ctrl+"},
                 {ModifierFlag::option, 1U << 3, "Mod1+"},
                 {ModifierFlag::command, 1U << 6, "Mod4+"}};

QByteArray textOf(std::uint16_t bits, std::uint8_t keycode) {
    QByteArray text;
    for (const auto& modifier : modifiers)
        if (bits & modifier.bit) text += modifier.name;
    return text + QByteArray::number(keycode);
}

} // namespace

SwayHotKeys::SwayHotKeys(SwayIpc& sway, const LayoutKeyboard& keyboard)
    : sway_(sway)
    , keyboard_(keyboard)
    , openings_(sway.opened.connect([this] { readConfiguration(); }))
    , events_(sway.happened.connect(
          [this](SwayEvent type, const QJsonObject& event) { handleEvent(type, event); })) {}

void SwayHotKeys::handleEvent(SwayEvent type, const QJsonObject& event) {
    const auto change = event.value("change").toString();
    if (type == SwayEvent::binding) {
        const auto command = event.value("binding").toObject().value("command").toString();
        if (command.startsWith(commandPrefix)) pressed.emit(command.mid(commandPrefix.size()).toUInt());
    } else if (type == SwayEvent::mode) {
        isInDefaultMode_ = change == defaultMode;
        startWaiting();
    } else if (type == SwayEvent::workspace && change == QLatin1String("reload")) {
        readConfiguration();
    }
}

/// Nothing is bound now: what sway is like was made anew.
void SwayHotKeys::readConfiguration() {
    usersBindings_.reset();
    isInDefaultMode_ = false;
    bound_.clear();
    waiting_.clear();
    sway_.ask(SwayRequest::getBindingState, {}, [this](const QJsonDocument& answer) {
        isInDefaultMode_ = answer.object().value("name") == defaultMode;
    });
    const auto folder = std::make_shared<std::filesystem::path>();
    sway_.ask(SwayRequest::getVersion, {}, [folder](const QJsonDocument& answer) {
        const auto file = answer.object().value("loaded_config_file_name").toString().toStdString();
        *folder = std::filesystem::path(file).parent_path();
    });
    sway_.ask(SwayRequest::getConfig, {}, [this, folder](const QJsonDocument& answer) {
        SwayBindings bindings(
            [folder](const std::string& pattern) { return includedSwayFiles(pattern, *folder); });
        bindings.read(answer.object().value("config").toString().toStdString());
        usersBindings_ = bindings.all();
        startWaiting();
    });
    changed.emit();
}

std::optional<SwayHotKeys::Keys> SwayHotKeys::keysOf(const KeyCombination& combination) {
    const auto keycode = xKeycodeOf(combination.keyCode);
    if (!keycode) return std::nullopt;
    Keys keys{0, *keycode};
    for (const auto& modifier : modifiers)
        if (combination.modifierFlags & modifier.flag) keys.modifiers |= modifier.bit;
    return keys;
}

void SwayHotKeys::bind(unsigned number, const KeyCombination& combination,
                       std::function<void(bool isGranted)> answered) {
    if (const auto keys = keysOf(combination)) {
        whenReady([this, number, keys = *keys, answered = std::move(answered)] {
            bindNow(number, keys, answered);
        });
    } else {
        QMetaObject::invokeMethod(
            &later_, [answered = std::move(answered)] { answered(false); }, Qt::QueuedConnection);
    }
}

void SwayHotKeys::bindNow(unsigned number, const Keys& keys,
                          const std::function<void(bool isGranted)>& answered) {
    if (isTaken(keys)) return answered(false);
    bound_.insert(number);
    sway_.run("bindcode --no-repeat " + textOf(keys.modifiers, keys.keycode) + ' ' + commandPrefix.data() +
                  QByteArray::number(number),
              answered);
}

void SwayHotKeys::unbind(unsigned number, const KeyCombination& combination) {
    const auto keys = keysOf(combination);
    if (!keys) return;
    whenReady([this, number, keys = *keys] {
        // One that the user has was never ours.
        if (bound_.erase(number) > 0) sway_.run("unbindcode " + textOf(keys.modifiers, keys.keycode));
    });
}

void SwayHotKeys::whenReady(std::function<void()> task) {
    waiting_.push_back(std::move(task));
    startWaiting();
}

void SwayHotKeys::startWaiting() {
    if (!usersBindings_ || !isInDefaultMode_) return;
    for (const auto& task : std::exchange(waiting_, {}))
        task();
}

bool SwayHotKeys::isTaken(const Keys& keys) const {
    std::vector<std::uint32_t> keysyms;
    const auto isSame = [&](const SwayBinding& binding) {
        if (binding.modifiers != keys.modifiers) return false;
        if (binding.keycode != 0) return binding.keycode == keys.keycode;
        if (keysyms.empty()) {
            for (const auto& layout : keyboard_.layouts().ofGroups) {
                const auto typed = typedKeysymsOf(layout);
                const auto keysym = typed.find(keys.keycode);
                keysyms.push_back(keysym == typed.end() ? 0 : xkb_keysym_to_lower(keysym->second));
            }
        }
        return std::ranges::count(keysyms, binding.keysym) > 0;
    };
    return std::ranges::any_of(*usersBindings_, isSame);
}

} // namespace quorvane
