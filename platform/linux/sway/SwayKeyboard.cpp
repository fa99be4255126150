#include "platform/linux/sway/SwayKeyboard.h"

#include <algorithm>

#include "platform/linux/keyboard/XkbRegistry.h"

namespace quorvane {
namespace {

using Names = std::vector<std::string>;

/// Empty for what is no keyboard.
Names layoutNamesOf(const QJsonObject& input) {
    Names names;
    for (const auto& name : input.value("xkb_layout_names").toArray())
        names.push_back(name.toString().toStdString());
    return names;
}

unsigned groupOf(const QJsonObject& input) {
    return static_cast<unsigned>(std::max(0, input.value("xkb_active_layout_index").toInt()));
}

} // namespace

SwayKeyboard::SwayKeyboard(SwayIpc& sway)
    : sway_(sway)
    , inputs_(sway, SwayRequest::getInputs,
              [this](const QJsonDocument& answer) { takeInputs(answer.array()); })
    , openings_(sway.opened.connect([this] { group_.forgetRequests(); }))
    , events_(sway.happened.connect([this](SwayEvent type, const QJsonObject& event) {
        if (type == SwayEvent::input) handleInput(event);
    })) {}

void SwayKeyboard::lockGroup(unsigned group) {
    if (!sway_.isOpen()) return;
    group_.request(group);
    const auto command = "input type:keyboard xkb_switch_layout " + QByteArray::number(group);
    sway_.run(command, [this](bool /*isDone*/) {
        group_.answered();
        groupChanged.emit(group_.effective());
    });
}

void SwayKeyboard::handleInput(const QJsonObject& event) {
    // Where a keymap is replaced, as at each reload, there is another one for a moment: what it is in the end
    // is asked for.
    if (event.value("change") != QLatin1String("xkb_layout")) return inputs_.readAnew();
    const auto input = event.value("input").toObject();
    if (!hasOurLayouts(input)) return;
    group_.tell(groupOf(input));
    groupChanged.emit(group_.effective());
}

void SwayKeyboard::takeInputs(const QJsonArray& inputs) {
    QJsonObject chosen;
    Names names;
    for (const auto& each : inputs) {
        auto namesOfEach = layoutNamesOf(each.toObject());
        if (namesOfEach.size() <= names.size()) continue;
        names = std::move(namesOfEach);
        chosen = each.toObject();
    }
    if (names.empty()) return; // The last keyboard was unplugged, and the user keeps the layouts.
    if (names != layouts_.names) {
        layouts_ = {layoutsOfNames(names), names};
        group_.tell(groupOf(chosen));
        return mapChanged.emit();
    }
    // A new keymap of the same layouts starts with the first one, as a new keyboard does, and nobody tells.
    const bool isForgotten = std::any_of(inputs.begin(), inputs.end(), [this](const auto& each) {
        return hasOurLayouts(each.toObject()) && groupOf(each.toObject()) != group_.effective();
    });
    if (isForgotten && !group_.isUnderWay()) lockGroup(group_.effective());
}

bool SwayKeyboard::hasOurLayouts(const QJsonObject& input) const {
    return !layouts_.names.empty() && layoutNamesOf(input) == layouts_.names;
}

} // namespace quorvane
