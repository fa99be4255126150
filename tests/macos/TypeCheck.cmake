# The types of all sources of the macOS desktop, Objective-C++ included: only clang knows both of its processors.
find_program(QUORVANE_CLANGXX NAMES clang++ clang++-14)
add_test(NAME quorvane_macos_type_check
         COMMAND "${CMAKE_CURRENT_LIST_DIR}/check.sh" "${QUORVANE_CLANGXX}" "${CMAKE_SOURCE_DIR}"
                 "${QUORVANE_GENERATED_DIR}")
