#include "platform/linux/input-methods/fcitx5/Fcitx5InputSources.h"

#include <algorithm>
#include <chrono>
#include <memory>
#include <utility>

#include <QStandardPaths>

#include "platform/linux/Log.h"
#include "platform/linux/keyboard/XkbLayout.h"

namespace quorvane {
namespace {

using Clock = std::chrono::steady_clock;

InputSource sourceOf(const std::string& inputMethod) {
    return {.id = idOfFcitx5InputMethod(inputMethod), .hasIconReference = true};
}

bool isLayoutID(std::string_view id) {
    return layoutOfID(id).has_value();
}

std::string textIn(const QDBusMessage& answer) {
    const bool isText =
        answer.type() == QDBusMessage::ReplyMessage && answer.signature() == QLatin1String("s");
    return isText ? answer.arguments().at(0).toString().toStdString() : std::string();
}

void logMisunderstanding(const char* what) {
    logLine(std::string("Fcitx5 tells ") + what + " in a way that is not understood");
}

} // namespace

Fcitx5InputSources::Fcitx5InputSources(const QDBusConnection& bus, LayoutSources& layouts,
                                       InputMethodIcons icons)
    : layouts_(layouts)
    , underneath_(layouts)
    , icons_(std::move(icons))
    , selection_(
          {.ask = [this](unsigned number, const std::string& inputMethod) { ask(number, inputMethod); },
           .refused =
               [](const std::string& inputMethod) { logLine("Fcitx5 does not select " + inputMethod); }})
    , news_(bus,
            [this](const auto& news) {
                selection_.told(news, Clock::now());
                selectionMoved();
            })
    , controller_(bus) {
    due_.setSingleShot(true);
    due_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&due_, &QTimer::timeout, &due_, [this] {
        selection_.timePassed(Clock::now());
        selectionMoved();
    });
    subscriptions_.push_back(controller_.cameAlive.connect([this] {
        if (controller_.isStartedAnew())
            selection_.forget();
        else
            selection_.giveUp();
        watchSettings();
        readGroup();
    }));
    subscriptions_.push_back(controller_.fellSilent.connect([this] {
        selection_.giveUp();
        selectionMoved();
        setAvailable(false);
    }));
    subscriptions_.push_back(controller_.groupsChanged.connect([this] { readGroup(); }));
    subscriptions_.push_back(layouts_.selectionChanged.connect([this] { tellSelection(); }));
    subscriptions_.push_back(controller_.iconChanged.connect([this] { userMayHaveSwitched(); }));
}

// Reading the list ----------------------------------------------------------------------------------------

/// Fcitx5 tells when there is another group, but not when a group has other input methods. It writes that
/// down, though.
void Fcitx5InputSources::watchSettings() {
    const auto folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    settings_.emplace(folder.toStdString() + "/fcitx5", [this](std::string_view file) {
        if (file.empty() || file == "profile") readGroup();
    });
}

void Fcitx5InputSources::readGroup() {
    controller_.call(QStringLiteral("CurrentInputMethodGroup"), {}, [this](const auto& name) {
        controller_.call(QStringLiteral("InputMethodGroupInfo"), {QString::fromStdString(textIn(name))},
                         [this](const auto& answer) {
                             auto group = fcitx5GroupIn(answer);
                             if (!group) return logMisunderstanding("what can be typed with");
                             groupRead(std::move(*group));
                         });
    });
}

void Fcitx5InputSources::groupRead(Fcitx5Group group) {
    const bool isKnown = std::ranges::all_of(
        group.items, [this](const auto& item) { return described_.contains(item.inputMethod); });
    if (isKnown) return setGroup(std::move(group));
    controller_.call(QStringLiteral("AvailableInputMethods"), {}, [this, group](const auto& answer) {
        auto all = fcitx5InputMethodsIn(answer);
        if (!all) logMisunderstanding("its input methods' names");
        for (const auto& item : group.items)
            described_[item.inputMethod] = all ? (*all)[item.inputMethod] : Fcitx5InputMethod();
        setGroup(group);
    });
}

void Fcitx5InputSources::setGroup(Fcitx5Group group) {
    group_ = std::move(group);
    setAvailable(true);
    userMayHaveSwitched(); // The input method in use may have been taken away.
}

void Fcitx5InputSources::setAvailable(bool isAvailable) {
    if (std::exchange(isAvailable_, isAvailable) == isAvailable) return;
    if (!isAvailable) described_.clear(); // the next one may have other names
    availabilityChanged.emit();
}

// The selection -------------------------------------------------------------------------------------------

void Fcitx5InputSources::ask(unsigned number, const std::string& inputMethod) {
    if (!inputMethod.empty())
        controller_.call(QStringLiteral("SetCurrentIM"), {QString::fromStdString(inputMethod)});
    struct Answers {
        Fcitx5Selection::Answer both;
        int missing = 2;
    };
    const auto answers = std::make_shared<Answers>();
    answers->both.isToldOfMost = news_.isTelling();
    // Qt may hand out the answers in another order than that of the calls.
    const auto come = [this, number, answers] {
        if (--answers->missing > 0) return;
        selection_.answered(number, answers->both, Clock::now());
        selectionMoved();
    };
    controller_.call(QStringLiteral("DebugInfo"), {}, [answers, come](const auto& answer) {
        answers->both.contexts = contextsInDebugInfo(textIn(answer));
        if (!answers->both.contexts) logMisunderstanding("which program has the focus");
        come();
    });
    controller_.call(QStringLiteral("CurrentInputMethod"), {}, [answers, come](const auto& answer) {
        answers->both.inputMethod = textIn(answer);
        come();
    });
}

void Fcitx5InputSources::applicationActivated(const std::string& application, int process) {
    const auto layout = layouts_.copyCurrentKeyboardInputSource();
    selection_.activated({application, process}, layout ? fcitx5InputMethodOfID(layout->id) : std::string(),
                         Clock::now());
    selectionMoved();
}

void Fcitx5InputSources::windowActivated(int process) {
    selection_.windowActivated(process, Clock::now());
    selectionMoved();
}

void Fcitx5InputSources::userMayHaveSwitched() {
    selection_.mayHaveChanged(Clock::now());
    selectionMoved();
}

bool Fcitx5InputSources::selectInputSource(const InputSource& source) {
    if (!isAvailable_ || createInputSourceList(source.id).empty()) return false;
    underneath_.prepareFor(source.id);
    selection_.select(fcitx5InputMethodOfID(source.id), Clock::now());
    selectionMoved();
    return true;
}

/// Arms the timer for what the selection has to do next.
void Fcitx5InputSources::selectionMoved() {
    if (const auto due = selection_.nextDue()) {
        const auto wait = std::chrono::ceil<std::chrono::milliseconds>(*due - Clock::now());
        due_.start(std::max(wait, std::chrono::milliseconds(0)));
    } else {
        due_.stop();
    }
    tellSelection();
}

void Fcitx5InputSources::tellSelection() {
    const auto current = copyCurrentKeyboardInputSource();
    if (!current || std::exchange(toldID_, current->id) == current->id) return;
    // Also when it is somebody else's selection: see the class.
    underneath_.prepareFor(current->id);
    selectionChanged.emit();
}

// What is answered ----------------------------------------------------------------------------------------

std::vector<InputSource> Fcitx5InputSources::createInputSourceList(std::optional<std::string_view> id) const {
    std::vector<InputSource> list;
    for (const auto& item : group_.items) {
        auto source = sourceOf(item.inputMethod);
        if (!id || source.id == *id) list.push_back(std::move(source));
    }
    return list;
}

std::optional<InputSource> Fcitx5InputSources::copyCurrentKeyboardInputSource() const {
    if (!isAvailable_) return std::nullopt;
    if (const auto& current = selection_.current()) return sourceOf(*current);
    // An application that does without Fcitx5 is typed with the X server's layout.
    if (selection_.isWithoutContext()) return layouts_.copyCurrentKeyboardInputSource();
    return std::nullopt;
}

std::optional<InputSource> Fcitx5InputSources::copyCurrentKeyboardLayoutInputSource() const {
    auto current = copyCurrentKeyboardInputSource();
    if (!current || isLayoutID(current->id)) return current;
    const auto item =
        std::ranges::find(group_.items, fcitx5InputMethodOfID(current->id), &Fcitx5Group::Item::inputMethod);
    const auto& own = item == group_.items.end() ? std::string() : item->layout;
    return sourceOf("keyboard-" + (own.empty() ? group_.layout : own));
}

const Fcitx5InputMethod& Fcitx5InputSources::described(const InputSource& source) const {
    static const Fcitx5InputMethod none;
    const auto described = described_.find(fcitx5InputMethodOfID(source.id));
    return described == described_.end() ? none : described->second;
}

std::string Fcitx5InputSources::localizedName(const InputSource& source) const {
    if (underneath_.has(source.id)) return layouts_.localizedName(source);
    const auto& inputMethod = described(source);
    if (!inputMethod.nativeName.empty()) return inputMethod.nativeName;
    return inputMethod.name.empty() ? source.id : inputMethod.name;
}

ImageRef Fcitx5InputSources::iconOfReference(const InputSource& source) const {
    if (underneath_.has(source.id)) return layouts_.iconOfReference(source);
    const auto& inputMethod = described(source);
    // The label of a layout is its language.
    if (isLayoutID(source.id)) return icons_.iconOf({inputMethod.icon, {}, inputMethod.label});
    return icons_.iconOf({inputMethod.icon, inputMethod.label, fcitx5InputMethodOfID(source.id)});
}

} // namespace quorvane
