#pragma once

#include <string>
#include <string_view>

namespace quorvane {

/// Programs that run other programs: they do not tell which application it is.
bool isInterpreter(std::string_view program);

/// What an application without a desktop file is called: by the class of its windows, but by its program
/// where the class is no more than another spelling of that ("XTerm", "Gimp"), because the program is all
/// there is to name it by before it has a window.
std::string nameOfApplication(std::string_view wmClass, std::string_view program);

/// In lower case, the letters of English.
std::string lower(std::string_view text);

} // namespace quorvane
