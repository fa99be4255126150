#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/PropertyList.h"
#include "platform/linux/session/SessionKind.h"

namespace quorvane {

/// What is to be known of a desktop to tell what is missing or odd on it.
struct Symptoms {
    bool hasSessionBus = true;
    bool hasXServer = true;
    SessionKind session = SessionKind::x11;
    bool hasWindowManager = true;
    bool hasTray = true;
    std::size_t declaredLayouts = 2; ///< How many the user has asked the X server for.
    std::string inputMethod;         ///< That programs are told to use: "ibus", "fcitx" or something else.
    std::vector<std::string> otherSwitchers; ///< Running programs that switch layouts by themselves.
    std::string
        layoutKeeper; ///< What of the desktop keeps a layout for each window or program; empty: nothing.
    std::string settingsFolder;
    bool isSettingsFolderWritable = true;
    std::optional<PropertyList> status; ///< What the running program says; none when it does not run.
};

struct Finding {
    std::string problem;
    std::string remedy;
};

std::vector<Finding> diagnose(const Symptoms& symptoms);

} // namespace quorvane
