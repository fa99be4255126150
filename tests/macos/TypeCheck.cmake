# The types of all sources of the macOS desktop, Objective-C++ included: only clang knows both of its processors.
find_program(QUORVANE_CLANGXX NAMES clang++ clang++-14)
if(NOT QUORVANE_SANITIZE) # Sanitizers see nothing of it.
  add_test(NAME quorvane_macos_type_check
           COMMAND "${CMAKE_CURRENT_LIST_DIR}/check.sh" "${QUORVANE_CLANGXX}" "${CMAKE_SOURCE_DIR}"
                   "${QUORVANE_GENERATED_DIR}")
  set_tests_properties(quorvane_macos_type_check PROPERTIES COST 50 PROCESSORS 2)
endif()

# The build for a Mac, as far as it can be planned without one.
add_test(NAME quorvane_macos_configure
         COMMAND "${CMAKE_CURRENT_LIST_DIR}/configure.sh" "${CMAKE_COMMAND}" "${QUORVANE_CLANGXX}" "${CMAKE_SOURCE_DIR}"
                 "${GTest_DIR}")
