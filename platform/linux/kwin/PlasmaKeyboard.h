#pragma once

#include <vector>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>

#include "platform/linux/dbus/BusName.h"
#include "platform/linux/keyboard/LayoutKeyboard.h"
#include "platform/linux/keyboard/RequestedGroup.h"
#include "platform/linux/kwin/PlasmaLayouts.h"

namespace quorvane {

/// KWin's keyboard, as its service for layouts on the session bus tells of it. With one layout there is no
/// such service.
class PlasmaKeyboard : public QObject, public LayoutKeyboard {
    Q_OBJECT

public:
    explicit PlasmaKeyboard(const QDBusConnection& bus);

    KeyboardLayouts layouts() const override { return layouts_; }
    unsigned effectiveGroup() const override { return group_.effective(); }
    void readGroup() override {} ///< It is read with the layouts.
    void lockGroup(unsigned group) override;

private:
    Q_SLOT void layoutChanged(const QDBusMessage& signal);
    Q_SLOT void layoutListChanged(const QDBusMessage& signal);
    void serviceTold();
    void readLayouts();
    void takeLayouts(const std::vector<PlasmaLayoutName>& names, unsigned group);
    void takeSingleLayout();
    void explainSingleLayout();

    QDBusConnection bus_;
    KeyboardLayouts layouts_;
    RequestedGroup group_;
    BusName service_;
    Subscription owners_;
};

} // namespace quorvane
