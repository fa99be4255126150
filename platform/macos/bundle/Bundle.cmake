# Quorvane.app: the program, what it shows, and the login item that starts it, signed for this Mac.

include(${CMAKE_CURRENT_LIST_DIR}/Configure.cmake)
set(bundle_folder ${CMAKE_CURRENT_LIST_DIR})

set(pictures
  ${bundle_folder}/Quorvane.icns
  ${bundle_folder}/menuBarIcon.png
  ${bundle_folder}/menuBarIcon@2x.png)
set_source_files_properties(${pictures} PROPERTIES MACOSX_PACKAGE_LOCATION Resources)
set_source_files_properties(${QUORVANE_HELP} PROPERTIES MACOSX_PACKAGE_LOCATION Resources/help)

file(GLOB tables CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/resources/*.lproj/Localizable.strings)
list(APPEND tables ${bundle_folder}/en.lproj/Localizable.strings)
foreach(table ${tables})
  cmake_path(GET table PARENT_PATH folder)
  cmake_path(GET folder FILENAME language)
  set_source_files_properties(${table} PROPERTIES MACOSX_PACKAGE_LOCATION Resources/${language})
endforeach()

add_executable(quorvane MACOSX_BUNDLE main.mm ${pictures} ${tables} ${QUORVANE_HELP})
set_target_properties(quorvane PROPERTIES
  OUTPUT_NAME Quorvane
  MACOSX_BUNDLE_INFO_PLIST ${QUORVANE_BUNDLE_FILES}/Info.plist)
target_link_libraries(quorvane PRIVATE quorvane_macos)

# Not in the folder of programs: the system may start any copy of it that it finds.
add_executable(quorvane_login_item MACOSX_BUNDLE helper/main.mm)
set_target_properties(quorvane_login_item PROPERTIES
  OUTPUT_NAME QuorvaneProHelper
  RUNTIME_OUTPUT_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}/login-item
  MACOSX_BUNDLE_INFO_PLIST ${QUORVANE_BUNDLE_FILES}/HelperInfo.plist)
target_include_directories(quorvane_login_item PRIVATE ${CMAKE_SOURCE_DIR} ${QUORVANE_GENERATED_DIR})
target_link_libraries(quorvane_login_item PRIVATE "-framework Cocoa" "-framework ImageIO" "-framework ServiceManagement")

# Inside out, and last of all: a change breaks the seal. Not with the hardened runtime, under which settings of a
# program without a team's signature may stay in memory. How a release is signed: docs/macos-release.md.
set(login_item $<TARGET_BUNDLE_CONTENT_DIR:quorvane>/Library/LoginItems/QuorvaneProHelper.app)
set(seal ${CMAKE_CURRENT_BINARY_DIR}/seal)
add_custom_command(
  OUTPUT ${seal}
  COMMAND ${CMAKE_COMMAND} -E rm -rf ${login_item}
  COMMAND ${CMAKE_COMMAND} -E copy_directory $<TARGET_BUNDLE_DIR:quorvane_login_item> ${login_item}
  COMMAND codesign --force --sign - ${login_item}
  COMMAND codesign --force --sign - $<TARGET_BUNDLE_DIR:quorvane>
  COMMAND ${CMAKE_COMMAND} -E touch ${seal}
  DEPENDS quorvane quorvane_login_item ${pictures} ${tables} ${QUORVANE_HELP} ${QUORVANE_BUNDLE_FILES}/Info.plist
          ${QUORVANE_BUNDLE_FILES}/HelperInfo.plist
  COMMENT "Signing Quorvane.app for this Mac"
  VERBATIM)
add_custom_target(quorvane_bundle ALL DEPENDS ${seal})
