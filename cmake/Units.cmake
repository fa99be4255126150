# Most of the time in which a source is compiled goes into the headers of the standard library and of Qt. Where
# CMAKE_UNITY_BUILD is on, the sources of a folder are compiled as one. It is on in the presets that build
# everything, and off by hand, where one source changes at a time, and with clang, so that each source is compiled
# alone somewhere: it includes what it uses.
set(CMAKE_UNITY_BUILD_BATCH_SIZE 0) # all sources of a target
if(CMAKE_SYSTEM_NAME STREQUAL "Darwin") # its sources were never compiled together
  set(CMAKE_UNITY_BUILD OFF)
endif()

# For a target with sources in several folders: a unit each.
function(quorvane_one_unit_a_folder target)
  set_target_properties(${target} PROPERTIES UNITY_BUILD_MODE GROUP)
  get_target_property(sources ${target} SOURCES)
  foreach(source IN LISTS sources)
    cmake_path(GET source PARENT_PATH folder)
    # Not by its absolute name, or no two checkouts would share the compiler's cache.
    string(REPLACE "${CMAKE_SOURCE_DIR}/" "" folder "${folder}")
    string(MAKE_C_IDENTIFIER "${folder}" unit)
    set_source_files_properties("${source}" TARGET_DIRECTORY ${target} PROPERTIES UNITY_GROUP "${unit}")
  endforeach()
endfunction()
