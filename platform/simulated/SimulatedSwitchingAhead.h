#pragma once

#include <string>

#include "platform/SwitchingAhead.h"
#include "platform/simulated/Journal.h"

namespace quorvane {

/// Only writes down what it is told: "ahead ru.app ru, others us".
class SimulatedSwitchingAhead : public SwitchingAhead {
public:
    explicit SimulatedSwitchingAhead(Journal& journal) : journal_(journal) {}

    void setRules(const SwitchingRules& rules) override {
        std::string text;
        for (const auto& [application, source] : rules.sourceOfApplication)
            text.append(application).append(" ").append(source).append(", ");
        journal_.add("ahead ", text, "others ",
                     rules.sourceOfOthers.empty() ? "as they are" : rules.sourceOfOthers);
    }

private:
    Journal& journal_;
};

} // namespace quorvane
