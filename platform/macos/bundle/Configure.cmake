# Fills the maker's values into the files that describe the bundle; also on Linux, where the tests read them.
set(QUORVANE_BUNDLE_FILES "${CMAKE_BINARY_DIR}/bundle-files")
foreach(file Info.plist HelperInfo.plist Quorvane.entitlements)
  configure_file("${CMAKE_CURRENT_LIST_DIR}/${file}.in" "${QUORVANE_BUNDLE_FILES}/${file}" @ONLY)
endforeach()
