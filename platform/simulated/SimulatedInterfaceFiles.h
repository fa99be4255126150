#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/InterfaceFiles.h"
#include "platform/NotificationCenter.h"
#include "platform/simulated/Journal.h"
#include "platform/simulated/SimulatedPreferences.h"
#include "platform/simulated/SimulatedWindow.h"

namespace quorvane {

class SimulatedView : public View {
public:
    SimulatedView(Journal& journal, const char* name) : journal_(journal), name_(name) {}

    void setHidden(bool hidden) override {
        if (std::exchange(isHidden_, hidden) != hidden) journal_.add(name_, hidden ? " hidden" : " shown");
    }

private:
    Journal& journal_;
    const char* name_;
    bool isHidden_ = false;
};

class SimulatedIconView : public IconView {
public:
    explicit SimulatedIconView(Journal& journal) : journal_(journal), view_(journal, "icon") {}

    void setHidden(bool hidden) override { view_.setHidden(hidden); }
    void setImage(ImageRef image) override {
        if (image)
            journal_.add("icon ", image->size().width, "x", image->size().height);
        else
            journal_.add("no icon");
    }

private:
    Journal& journal_;
    SimulatedView view_;
};

class SimulatedInterfaceFiles : public InterfaceFiles {
public:
    SimulatedInterfaceFiles(Journal& journal, NotificationCenter& notifications)
        : journal_(journal)
        , notifications_(notifications) {}

    MainInterface mainInterface() override { return {window_, inputIconWindow_, iconView_, iconBox_}; }
    std::unique_ptr<PreferencesInterface> loadPreferences() override;

    std::string preferencesTitle = "Quorvane"; ///< Another text where it is translated.

    /// The preferences windows that were made, oldest first. They belong to whoever loaded them.
    std::vector<SimulatedPreferences*> loadedPreferences;

private:
    Journal& journal_;
    NotificationCenter& notifications_;
    SimulatedWindow window_{journal_, "window", notifications_};
    SimulatedWindow inputIconWindow_{journal_, "indicator", notifications_};
    SimulatedIconView iconView_{journal_};
    SimulatedView iconBox_{journal_, "box"};
};

} // namespace quorvane
