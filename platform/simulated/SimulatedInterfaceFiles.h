#pragma once

#include <string>
#include <vector>

#include "platform/InterfaceFiles.h"
#include "platform/NotificationCenter.h"
#include "platform/simulated/SimulatedPreferences.h"
#include "platform/simulated/SimulatedWindow.h"

namespace quorvane {

class SimulatedView : public View {
public:
    void setHidden(bool hidden) override { isHidden = hidden; }

    bool isHidden = false;
};

class SimulatedIconView : public IconView {
public:
    void setHidden(bool hidden) override { isHidden = hidden; }
    void setImage(ImageRef newImage) override { image = std::move(newImage); }

    bool isHidden = false;
    ImageRef image;
};

class SimulatedInterfaceFiles : public InterfaceFiles {
public:
    explicit SimulatedInterfaceFiles(NotificationCenter& notifications)
        : window("", notifications)
        , inputIconWindow("", notifications)
        , notifications_(notifications) {}

    MainInterface mainInterface() override { return {window, inputIconWindow, iconView, iconBox}; }
    std::unique_ptr<PreferencesInterface> loadPreferences() override;

    SimulatedWindow window;
    SimulatedWindow inputIconWindow;
    SimulatedIconView iconView;
    SimulatedView iconBox;
    std::string preferencesTitle = "Quorvane"; ///< Another text where it is translated.

    /// The preferences windows that were made, oldest first. They belong to whoever loaded them.
    std::vector<SimulatedPreferences*> loadedPreferences;

private:
    NotificationCenter& notifications_;
};

} // namespace quorvane
