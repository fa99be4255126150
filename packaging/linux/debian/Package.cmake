# The Debian package, made by `cpack` in the build's folder: what is installed anywhere, and what only a package has.
set(only_in_package COMPONENT debian EXCLUDE_FROM_ALL)
configure_file(debian/copyright.in copyright @ONLY)
install(FILES "${CMAKE_CURRENT_BINARY_DIR}/copyright" DESTINATION share/doc/quorvane ${only_in_package})
install_compressed(debian/changelog.in share/doc/quorvane changelog.Debian ${only_in_package})
install(FILES debian/lintian-overrides DESTINATION share/lintian/overrides RENAME quorvane ${only_in_package})
set(CPACK_INSTALL_CMAKE_PROJECTS "${CMAKE_BINARY_DIR};Quorvane;ALL;/;${CMAKE_BINARY_DIR};Quorvane;debian;/")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME quorvane)
set(CPACK_PACKAGE_CONTACT "${QUORVANE_MAINTAINER}")
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS # whatever the umask
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION x11)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE "https://${QUORVANE_WEBSITE}")
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# What is loaded while it runs: the pictures of the window are SVG, and a theme's icons need the theme they belong to.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "libqt6svg6, qt6-wayland, hicolor-icon-theme")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "default-dbus-session-bus | dbus-session-bus, qt6-translations-l10n, xdg-utils")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "keyboard input source for every program, by rule")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION "Quorvane selects a keyboard layout or an input method for the program that
comes to the front, before the first key arrives: this terminal types
English, that editor Russian, everything else German. Launchers can have
rules as well, input sources can have hot keys, and a small indicator can
show the current one at the window in front.

It works on X11, with the layouts of the X server and the input methods of
IBus and Fcitx 5. It runs in the background, with an item in the system
tray, and reads no key but its hot keys.")
include(CPack)
