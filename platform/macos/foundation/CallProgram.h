#pragma once

namespace quorvane {

/// Calls the program from a callback of the system, whose frames no C++ exception may cross: an exception
/// ends the program here, where its report still shows the cause.
template <class Function, class... Arguments>
decltype(auto) callProgram(const Function& function, const Arguments&... arguments) noexcept {
    return function(arguments...);
}

} // namespace quorvane
