#pragma once

#include <string>
#include <vector>

#include <QJsonArray>

#include "platform/linux/keyboard/LayoutKeyboard.h"
#include "platform/linux/keyboard/RequestedGroup.h"
#include "platform/linux/sway/SwayReading.h"

namespace quorvane {

/// sway's keyboards: they are switched together, and the one with the most layouts stands for all.
class SwayKeyboard : public LayoutKeyboard {
public:
    /// `sway` must outlive this object.
    explicit SwayKeyboard(SwayIpc& sway);

    KeyboardLayouts layouts() const override { return layouts_; }
    unsigned effectiveGroup() const override { return group_.effective(); }
    void readGroup() override {} ///< It comes with the layouts.
    void lockGroup(unsigned group) override;

private:
    void handleInput(const QJsonObject& event);
    void takeInputs(const QJsonArray& inputs);
    bool hasOurLayouts(const QJsonObject& input) const;

    SwayIpc& sway_;
    KeyboardLayouts layouts_;
    RequestedGroup group_;
    SwayReading inputs_;
    Subscription openings_;
    Subscription events_;
};

} // namespace quorvane
