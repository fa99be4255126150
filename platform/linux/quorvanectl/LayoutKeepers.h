#pragma once

#include <string>

#include <QString>

namespace quorvane {

/// What of the user's desktop keeps a keyboard layout for each window or program, as its settings say. It
/// hears of the focus later than this program does, and puts back what it remembers. Empty: nothing does, or
/// the desktop is not known.
///
/// `currentDesktop` has the names of the desktop, separated by colons; `configFolder` is where its settings
/// lie.
std::string layoutKeeper(const QString& currentDesktop, const QString& configFolder);

} // namespace quorvane
