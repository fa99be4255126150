# What Wayland programs speak besides the core protocol, compiled from its description.

enable_language(C) # what the scanner writes
find_package(PkgConfig REQUIRED)
find_program(WAYLAND_SCANNER wayland-scanner REQUIRED)
pkg_check_modules(WAYLAND_CLIENT REQUIRED IMPORTED_TARGET wayland-client)
pkg_check_modules(WAYLAND_PROTOCOLS REQUIRED wayland-protocols)
pkg_get_variable(QUORVANE_WAYLAND_PROTOCOLS wayland-protocols pkgdatadir)

# quorvane_wayland_protocols(target PUBLIC|PRIVATE|INTERFACE name...) lets a target speak these protocols: a name is that
# of an XML file in platform/linux/wayland/protocols or of one that the wayland-protocols package has, and
# "NAME-client-protocol.h" the header. A protocol is one library, however many speak it.
function(quorvane_wayland_protocols target scope)
  foreach(name IN LISTS ARGN)
    if(NOT TARGET quorvane_wayland_${name})
      set(description "${CMAKE_SOURCE_DIR}/platform/linux/wayland/protocols/${name}.xml")
      if(NOT EXISTS "${description}")
        file(GLOB_RECURSE description "${QUORVANE_WAYLAND_PROTOCOLS}/*/${name}.xml")
      endif()
      if(NOT description)
        message(FATAL_ERROR "No description of the Wayland protocol ${name}")
      endif()
      set(folder "${CMAKE_BINARY_DIR}/generated/wayland")
      file(MAKE_DIRECTORY "${folder}")
      add_custom_command(OUTPUT "${folder}/${name}-client-protocol.h" "${folder}/${name}-protocol.c"
        COMMAND "${WAYLAND_SCANNER}" client-header "${description}" "${folder}/${name}-client-protocol.h"
        COMMAND "${WAYLAND_SCANNER}" private-code "${description}" "${folder}/${name}-protocol.c"
        DEPENDS "${description}" VERBATIM)
      add_library(quorvane_wayland_${name} STATIC EXCLUDE_FROM_ALL
                  "${folder}/${name}-protocol.c" "${folder}/${name}-client-protocol.h")
      target_include_directories(quorvane_wayland_${name} SYSTEM INTERFACE "${folder}")
      target_link_libraries(quorvane_wayland_${name} PUBLIC PkgConfig::WAYLAND_CLIENT)
      target_compile_options(quorvane_wayland_${name} PRIVATE -w) # not ours
      if(name STREQUAL "wlr-layer-shell-unstable-v1") # names a type of the other
        quorvane_wayland_protocols(quorvane_wayland_${name} PUBLIC xdg-shell)
      endif()
    endif()
    target_link_libraries(${target} ${scope} quorvane_wayland_${name})
  endforeach()
endfunction()
