#include "platform/linux/input-methods/fcitx5/Fcitx5InputSources.h"

#include <algorithm>
#include <utility>

#include <QStandardPaths>

#include "platform/linux/Log.h"
#include "platform/linux/applications/ProcessFacts.h"
#include "platform/linux/dbus/GLibRefs.h"
#include "platform/linux/dbus/SessionBusAddress.h"
#include "platform/linux/keyboard/XkbLayout.h"

namespace quorvane {
namespace {

const DaemonConnection::Interface controller{"/controller", "org.fcitx.Fcitx.Controller1"};

/// Fcitx5's icon in the tray shows what is typed with. Others' icons change, too.
const DaemonConnection::Interface trayItem{"/StatusNotifierItem", "org.kde.StatusNotifierItem"};

constexpr const char* contextsAreTold =
    "type='signal',interface='org.fcitx.Fcitx.InputContext1',member='CurrentIM'";

constexpr const char* contextsAreMade =
    "type='method_call',interface='org.fcitx.Fcitx.InputMethod1',member='CreateInputContext'";

/// Programs in a sandbox talk through a process of this name, which has no windows.
constexpr const char* proxy = "xdg-dbus-proxy";

/// Stands for the only context that is known, when Fcitx5's description of itself is not understood.
constexpr const char* unknownContext = "?";

std::string textIn(GVariant* answer) {
    const char* text = "";
    if (answer) g_variant_get(answer, "(&s)", &text);
    return text;
}

void logMisunderstanding(const char* what) {
    logLine(std::string("Fcitx5 tells ") + what + " in a way that is not understood");
}

} // namespace

Fcitx5InputSources::Fcitx5InputSources(LayoutSources& layouts, InputMethodIcons icons)
    : DaemonInputSources(layouts, std::move(icons), TypesLayouts::itself)
    , connection_("org.fcitx.Fcitx5")
    , monitor_({contextsAreTold, contextsAreMade}, [this](const auto& message) { heard(message); }) {
    subscriptions_.push_back(connection_.cameAlive.connect([this] { cameAlive(); }));
    subscriptions_.push_back(connection_.wentAway.connect([this] {
        setAvailable(false);
        selection().giveUp();
        selectionMoved();
    }));
    connection_.listen(controller, [this](std::string_view signal, GVariant*) {
        if (signal == "InputMethodGroupsChanged") readGroup();
    });
    constexpr bool isOfAnybody = true;
    connection_.listen(
        trayItem,
        [this](std::string_view signal, GVariant*) {
            if (signal == "NewIcon") userMayHaveSwitched();
        },
        isOfAnybody);
    connection_.open(sessionBusAddress());
}

// The list ------------------------------------------------------------------------------------------------

void Fcitx5InputSources::cameAlive() {
    if (connection_.isStartedAnew()) {
        selection().forget();
        described_.clear(); // The new one may have other names.
        news_ = 0;
    } else {
        selection().giveUp();
    }
    // It tells when there is another group, but not when a group has other input methods. It writes that
    // down, though.
    const auto folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    settings_.emplace(folder.toStdString() + "/fcitx5", [this](std::string_view file) {
        if (file.empty() || file == "profile") readGroup();
    });
    readGroup();
}

void Fcitx5InputSources::readGroup() {
    connection_.call(controller, "CurrentInputMethodGroup", nullptr, "(s)", [this](GVariant* name) {
        connection_.call(controller, "InputMethodGroupInfo", g_variant_new("(s)", textIn(name).c_str()),
                         "(sa(ss))", [this](GVariant* group) {
                             if (!group) return logMisunderstanding("what can be typed with");
                             groupRead(fcitx5GroupIn(group));
                         });
    });
}

void Fcitx5InputSources::groupRead(const Fcitx5Group& group) {
    const auto& names = group.inputMethods;
    const auto isDescribed = [this](const auto& name) { return described_.contains(name); };
    if (!std::ranges::all_of(names, isDescribed)) {
        connection_.call(controller, "AvailableInputMethods", nullptr, "(a(ssssssb))",
                         [this, group](GVariant* list) {
                             if (!list) logMisunderstanding("its input methods' names");
                             auto all = list ? fcitx5InputMethodsIn(list) : decltype(described_)();
                             for (const auto& name : group.inputMethods)
                                 described_[name] = all[name];
                             groupRead(group);
                         });
        return;
    }
    std::vector<Method> methods;
    for (const auto& name : names) {
        const auto& [ofPeople, nativeName, icon, label] = described_[name];
        const auto id = idOf(name);
        // The label of a layout is its language.
        const bool isLayout = layoutOfID(id).has_value();
        methods.push_back({id, name, nativeName.empty() ? ofPeople : nativeName,
                           isLayout ? InputMethodIcon{icon, {}, label} : InputMethodIcon{icon, label, name},
                           name == group.layout});
    }
    setMethods(std::move(methods));
    setAvailable(true);
    userMayHaveSwitched(); // The input method in use may have been taken away.
}

// The selection -------------------------------------------------------------------------------------------

void Fcitx5InputSources::callSelect(const std::string& ownName) {
    connection_.call(controller, "SetCurrentIM", g_variant_new("(s)", ownName.c_str()), "()",
                     [this](GVariant* done) {
                         selection().answered(done != nullptr);
                         selectionMoved();
                     });
    callLook();
}

void Fcitx5InputSources::callLook() {
    connection_.call(controller, "DebugInfo", nullptr, "(s)", [this](GVariant* description) {
        const bool wasUnderstood = focus_.isUnderstood;
        focus_ = fcitx5FocusIn(textIn(description));
        if (wasUnderstood && !focus_.isUnderstood) logMisunderstanding("which program has the focus");
    });
    connection_.call(controller, "CurrentInputMethod", nullptr, "(s)", [this, news = news_](GVariant* name) {
        if (news == news_) looked(focus_, textIn(name)); // Else contexts may have been told since.
        selectionMoved();
    });
}

void Fcitx5InputSources::looked(const Fcitx5Focus& focus, const std::string& inputMethod) {
    const bool areTold = monitor_.isHearing() && news_ > 0;
    // One that has had the focus since before this program was there will not be told of.
    if (focus.context && !(areTold && focus.context->isOfDBus))
        selection().seen(focus.context->uuid, inputMethod, focus.context->isOfDBus);
    else if (!focus.isUnderstood && !areTold)
        selection().seen(unknownContext, inputMethod, true);
    else if (focus.isUnderstood && !focus.context && !inputMethod.empty())
        selection().seenNone(inputMethod);
    else
        selection().seenNone();
}

/// The arguments are the input method's name for people, its own name and its language.
void Fcitx5InputSources::heard(const BusMonitor::Message& message) {
    if (message.member == "CurrentIM") return told(message);
    // When a program's first context gets the focus, there is no time to ask whose it is.
    connection_.askProcess(message.sender, [](int) {});
}

void Fcitx5InputSources::told(const BusMonitor::Message& signal) {
    if (signal.texts.size() != 3) return;
    ++news_;
    connection_.askProcess(signal.destination, [this, context = signal.destination + signal.path,
                                                inputMethod = signal.texts[1]](int process) {
        if (process == 0) return; // It is gone.
        const bool isSandboxed = executableNameOf(process) == proxy;
        selection().told({context, isSandboxed ? ContextSelection::unknownProcess : process}, inputMethod);
        selectionMoved();
    });
}

void Fcitx5InputSources::applicationActivated(const std::string& application, int process) {
    const auto layout = layouts().copyCurrentKeyboardInputSource();
    selection().activated({application, process}, layout ? fcitx5InputMethodOfID(layout->id) : std::string());
    activationSettles();
    selectionMoved();
}

void Fcitx5InputSources::windowActivated(int process) {
    selection().windowActivated(process);
    selectionMoved();
}

void Fcitx5InputSources::userMayHaveSwitched() {
    selection().mayHaveChanged();
    selectionMoved();
}

} // namespace quorvane
