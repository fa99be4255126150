#pragma once

#include <functional>

#include <gtest/gtest.h>

#include "preferences/RuleTableRows.h"
#include "settings/AppRule.h"
#include "support/ProgramTest.h"

namespace quorvane {

inline constexpr const char *ru = "Russian", *us = "U.S.", *german = "German";
inline const std::string companionSheet =
    "sheet *\nThis function requires Tandrel support, please go to the official website to download. And "
    "Tandrel will make the input method switching faster and more stable.; button *Download; button *Cancel";

/// The preferences window, open, for the applications a, b and c.
class Preferences : public ProgramTest {
protected:
    Preferences() {
        openSharedDefaults(desktop_.defaults)
            ->removeObjectForKey(key::autoInput); // or they would be read here
        desktop_.inputSources.names = {{"us", us}, {"ru", ru}, {"de", german}};
        for (const auto* id : {"a", "b", "c"}) {
            desktop_.workspace.launch(id);
            desktop_.applicationBundles.paths[id] = std::string("/apps/") + id;
            desktop_.applicationBundles.names[std::string("/apps/") + id] = std::string("Name of ") + id;
        }
        desktop_.applicationBundles.icons["/apps/a"] = SimulatedImage::ofColor({32, 32}, 1, 2, 3);
    }

    void open() {
        play("launch preferences 1 |");
        window_ = desktop_.interfaceFiles.loadedPreferences.back();
    }
    PreferencesActions& actions() { return *window_->actions; }
    TableSource& source() { return *window_->source; }

    template <class Part>
    Part cell(const TableView& table, const char* column, int row) {
        const auto view = source().viewForTableColumn(table, column, row);
        return std::get<Part>(view.parts.back());
    }
    PopUpButtonPart popUp(int row) {
        return cell<PopUpButtonPart>(window_->applications, "Select Input", row);
    }

    /// As a user does it: the menu opens, and an item is chosen.
    static void choose(const PopUpButtonPart& menu, const char* title) {
        menu.willPopUp(menu.tag);
        menu.action(title);
    }

    std::vector<std::string> rows() {
        std::vector<std::string> names;
        for (int row = 0; row < source().numberOfRowsInTableView(window_->applications); ++row)
            names.push_back(cell<TextFieldPart>(window_->applications, "Application Name", row).stringValue);
        return names;
    }

    struct Step {
        const char* what;
        std::function<void()> happens;
        Lines follows;
    };
    void expectSteps(const std::vector<Step>& steps) {
        for (const auto& [what, happens, follows] : steps) {
            desktop_.journal.take();
            happens();
            EXPECT_EQ(desktop_.journal.take(), follows) << what;
        }
    }

    SimulatedPreferences* window_ = nullptr;
};

} // namespace quorvane
