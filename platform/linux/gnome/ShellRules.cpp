#include "platform/linux/gnome/ShellRules.h"

#include <utility>

#include <QDBusArgument>
#include <QDBusMetaType>
#include <QList>

namespace quorvane {

/// One line of the table in the shell.
struct ShellRule {
    QString key; ///< Desktop file or class.
    QString application;
    QString source;
};

static QDBusArgument& operator<<(QDBusArgument& argument, const ShellRule& rule) {
    argument.beginStructure();
    argument << rule.key << rule.application << rule.source;
    argument.endStructure();
    return argument;
}

static const QDBusArgument& operator>>(const QDBusArgument& argument, ShellRule& rule) {
    argument.beginStructure();
    argument >> rule.key >> rule.application >> rule.source;
    argument.endStructure();
    return argument;
}

ShellRules::ShellRules(GnomeShell& shell, ShellMessages& messages, const WindowOwners& owners)
    : shell_(shell)
    , owners_(owners) {
    qDBusRegisterMetaType<ShellRule>();
    qDBusRegisterMetaType<QList<ShellRule>>();
    sending_.setSingleShot(true);
    QObject::connect(&sending_, &QTimer::timeout, &sending_, [this] { send(); });
    subscriptions_.push_back(messages.windowChanged.connect(
        [this](WindowId window, const CompositorWindow& now) { windowChanged(window, now.facts); }));
    subscriptions_.push_back(shell.started.connect([this] { send(); }));
}

void ShellRules::setRules(const SwitchingRules& rules) {
    rules_ = rules;
    // At once: a pause begins now.
    send();
}

void ShellRules::windowChanged(WindowId window, const WindowFacts& facts) {
    const auto* owner = owners_.ownerOf(window);
    const auto& key = facts.desktopFile.empty() ? facts.wmClass : facts.desktopFile;
    if (!owner || !owner->id || key.empty()) return;
    auto& known = applications_.try_emplace(key, key).first->second;
    if (std::exchange(known, *owner->id) != *owner->id) sending_.start();
}

void ShellRules::send() const {
    QList<ShellRule> table;
    const auto add = [&table](const std::string& key, const std::string& application,
                              const std::string& source) {
        table.push_back({QString::fromStdString(key), QString::fromStdString(application),
                         QString::fromStdString(source)});
    };
    const auto& sources = rules_.sourceOfApplication;
    for (const auto& [application, source] : sources)
        if (!applications_.contains(application)) add(application, application, source);
    for (const auto& [key, application] : applications_) {
        const auto rule = sources.find(application);
        const auto& source = rule == sources.end() ? rules_.sourceOfOthers : rule->second;
        if (key != application || rule != sources.end()) add(key, application, source);
    }
    shell_.call("SetRules", {QVariant::fromValue(table), QString::fromStdString(rules_.sourceOfOthers)});
}

} // namespace quorvane

Q_DECLARE_METATYPE(quorvane::ShellRule)
