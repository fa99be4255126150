#include "platform/linux/session/ShellMessages.h"

#include <utility>

#include <QDBusArgument>
#include <QVariant>

#include "platform/linux/Log.h"
#include "platform/linux/control/ControlAddress.h"

namespace quorvane {
namespace {

constexpr auto introspection = R"xml(
  <interface name="%1">
    <!-- A window was opened, or is different now. -->
    <method name="WindowChanged">
      <arg name="window" type="s" direction="in"/>
      <arg name="desktopFile" type="s" direction="in"/>
      <arg name="class" type="s" direction="in"/>
      <arg name="title" type="s" direction="in"/>
      <arg name="pid" type="i" direction="in"/>
      <arg name="isHidden" type="b" direction="in"/>
      <arg name="x" type="i" direction="in"/>
      <arg name="y" type="i" direction="in"/>
      <arg name="width" type="i" direction="in"/>
      <arg name="height" type="i" direction="in"/>
    </method>
    <!-- The same from a script of KWin, which calls with nine arguments at most: "x y width height". -->
    <method name="WindowChangedTo">
      <arg name="window" type="s" direction="in"/>
      <arg name="desktopFile" type="s" direction="in"/>
      <arg name="class" type="s" direction="in"/>
      <arg name="title" type="s" direction="in"/>
      <arg name="pid" type="i" direction="in"/>
      <arg name="isHidden" type="b" direction="in"/>
      <arg name="bounds" type="s" direction="in"/>
    </method>
    <method name="WindowClosed"><arg name="window" type="s" direction="in"/></method>
    <!-- The user types into this window; empty: into none. -->
    <method name="WindowActivated"><arg name="window" type="s" direction="in"/></method>
    <method name="LauncherChanged">
      <arg name="desktopId" type="s" direction="in"/>
      <arg name="isOpen" type="b" direction="in"/>
    </method>
    <method name="HotKeyPressed"><arg name="number" type="i" direction="in"/></method>
    <!-- Identifier, name and short name of each; identifiers are those of rules. -->
    <method name="SourcesChanged">
      <arg name="sources" type="a(sss)" direction="in"/>
      <arg name="current" type="s" direction="in"/>
    </method>
    <method name="SourceChanged"><arg name="current" type="s" direction="in"/></method>
    <!-- An extension of the shell waits to be asked for all of this ... -->
    <method name="Ready"/>
    <!-- ... and tells nothing more. -->
    <method name="Ended"/>
  </interface>
)xml";

std::string textAt(const QVariantList& arguments, int place) {
    return arguments.at(place).toString().toStdString();
}

/// Without its bounds.
CompositorWindow windowOf(const QVariantList& arguments) {
    CompositorWindow window;
    window.facts.desktopFile = textAt(arguments, 1);
    window.facts.wmClass = textAt(arguments, 2);
    window.title = textAt(arguments, 3);
    window.facts.pid = arguments.at(4).toInt();
    window.isHidden = arguments.at(5).toBool();
    return window;
}

Rect rectOf(const QVariantList& numbers) {
    return {numbers.value(0).toDouble(), numbers.value(1).toDouble(), numbers.value(2).toDouble(),
            numbers.value(3).toDouble()};
}

std::vector<ShellSource> sourcesOf(const QVariant& argument) {
    std::vector<ShellSource> sources;
    const auto array = argument.value<QDBusArgument>();
    array.beginArray();
    while (!array.atEnd()) {
        QString id;
        QString name;
        QString shortName;
        array.beginStructure();
        array >> id >> name >> shortName;
        array.endStructure();
        sources.push_back({id.toStdString(), name.toStdString(), shortName.toStdString()});
    }
    array.endArray();
    return sources;
}

} // namespace

struct ShellMessages::Method {
    QString name;
    QString signature;
    void (*take)(ShellMessages&, const QVariantList& arguments);
};

/// The method of this name; null when there is none.
const ShellMessages::Method* ShellMessages::methodNamed(const QString& name) {
    static const Method methods[] = {
        {"WindowChanged", "ssssibiiii",
         [](auto& self, const auto& arguments) {
             auto window = windowOf(arguments);
             window.bounds = rectOf(arguments.mid(6));
             self.windowChanged.emit(self.numberOf(arguments.at(0).toString()), window);
         }},
        {"WindowChangedTo", "ssssibs",
         [](auto& self, const auto& arguments) {
             auto window = windowOf(arguments);
             const auto numbers = arguments.at(6).toString().split(' ');
             window.bounds = rectOf(QVariantList(numbers.begin(), numbers.end()));
             self.windowChanged.emit(self.numberOf(arguments.at(0).toString()), window);
         }},
        {"WindowClosed", "s",
         [](auto& self, const auto& arguments) {
             const auto known = self.numbers_.extract(arguments.at(0).toString());
             if (known) self.windowClosed.emit(known.mapped());
         }},
        {"WindowActivated", "s",
         [](auto& self, const auto& arguments) {
             self.windowActivated.emit(self.numberOf(arguments.at(0).toString()));
         }},
        {"LauncherChanged", "sb",
         [](auto& self, const auto& arguments) {
             self.launcherChanged.emit(textAt(arguments, 0), arguments.at(1).toBool());
         }},
        {"HotKeyPressed", "i",
         [](auto& self, const auto& arguments) {
             const int number = arguments.at(0).toInt();
             if (number >= 0) self.hotKeyPressed.emit(static_cast<unsigned>(number));
         }},
        {"SourcesChanged", "a(sss)s",
         [](auto& self, const auto& arguments) {
             self.sourcesChanged.emit(sourcesOf(arguments.at(0)), textAt(arguments, 1));
         }},
        {"SourceChanged", "s",
         [](auto& self, const auto& arguments) { self.sourceChanged.emit(textAt(arguments, 0)); }},
        {"Ready", "", [](auto& self, const auto& /*arguments*/) { self.ready.emit(); }},
        {"Ended", "", [](auto& self, const auto& /*arguments*/) { self.ended.emit(); }},
    };
    for (const auto& method : methods) {
        if (method.name == name) return &method;
    }
    return nullptr;
}

ShellMessages::ShellMessages(const QDBusConnection& bus, const QString& shell)
    : bus_(bus)
    , shellName_(shell)
    , shell_(bus, shell)
    , shells_(shell_.told.connect([this](const auto& before) { shellTold(before); })) {
    bus_.registerVirtualObject(path(), this);
}

ShellMessages::~ShellMessages() {
    bus_.unregisterObject(path());
}

QString ShellMessages::path() {
    return control_address::path() + "/Session";
}

QString ShellMessages::interface() {
    return control_address::service() + ".Session";
}

QString ShellMessages::introspect(const QString& path) const {
    return path == ShellMessages::path() ? QString(introspection).arg(interface()) : QString();
}

bool ShellMessages::handleMessage(const QDBusMessage& message, const QDBusConnection& connection) {
    if (!message.interface().isEmpty() && message.interface() != interface()) return false;
    const auto* method = methodNamed(message.member());
    if (!method) return false;
    if (!shell_.isTold()) {
        early_.push_back(message);
        return true;
    }
    if (message.service() != shell_.owner()) {
        if (!std::exchange(hasRefused_, true))
            logLine("a program that is not " + shellName_.toStdString() +
                    " tells of the session on the bus: it is not heard");
        return connection.send(
            message.createErrorReply(QDBusError::AccessDenied, "only " + shellName_ + " is heard"));
    }
    if (message.signature() != method->signature) {
        logLine("the message " + method->name.toStdString() + " of " + shellName_.toStdString() +
                " is malformed: it is ignored");
        return connection.send(message.createErrorReply(QDBusError::InvalidArgs,
                                                        method->name + " takes (" + method->signature + ")"));
    }
    method->take(*this, message.arguments());
    return !message.isReplyRequired() || connection.send(message.createReply());
}

void ShellMessages::shellTold(const std::optional<QString>& before) {
    numbers_.clear(); // Another one's windows are other windows.
    if (before && !before->isEmpty()) shellWent.emit();
    if (isShellThere()) shellCame.emit();
    for (const auto& message : std::exchange(early_, {}))
        handleMessage(message, bus_);
}

WindowId ShellMessages::numberOf(const QString& window) {
    if (window.isEmpty()) return noWindow;
    const auto [known, isNew] = numbers_.try_emplace(window, lastNumber_ + 1);
    if (isNew) ++lastNumber_;
    return known->second;
}

} // namespace quorvane
