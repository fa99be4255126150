#pragma once

#include <QDBusConnection>
#include <QDBusVirtualObject>

#include "platform/linux/session/SingleInstance.h"

namespace quorvane {

/// The running instance owns a name on the session bus, which ends with its connection. Without a bus every
/// instance is the one.
///
/// Who asks it to reopen hands over what the session gave for the launch: the token by which a window of the
/// other process may take the focus, which is then in the environment like one of its own.
class BusSingleInstance : public QDBusVirtualObject, public SingleInstance {
    Q_OBJECT

public:
    explicit BusSingleInstance(const QDBusConnection& bus);
    ~BusSingleInstance() override;

    bool becomeTheOne(IfAnotherRuns ifAnotherRuns) override;
    void waitForTheOtherToEnd() override;
    void onReopen(const std::function<void()>& handler) override;

    QString introspect(const QString& path) const override;
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;

private:
    bool takeName();
    bool askToReopen();

    QDBusConnection bus_;
    std::function<void()> reopen_;
    bool isAsked_ = false; ///< Before anybody listened.
};

} // namespace quorvane
