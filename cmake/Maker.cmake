# The maker's own values: the only place where they stand. Set them when configuring, for instance
#   cmake --preset release -DQUORVANE_TEAM_IDENTIFIER=ABCDE12345 -DQUORVANE_REVERSE_DNS_PREFIX=com.maker

set(QUORVANE_TEAM_IDENTIFIER "EXAMPLE000" CACHE STRING "Developer team identifier")
set(QUORVANE_REVERSE_DNS_PREFIX "org.example" CACHE STRING "Reverse-DNS prefix of the maker's applications")
set(QUORVANE_BUNDLE_IDENTIFIER "${QUORVANE_REVERSE_DNS_PREFIX}.Quorvane" CACHE STRING
    "Bundle identifier of this application, and the domain of its own defaults")
set(QUORVANE_COMPANION_BUNDLE_IDENTIFIER "${QUORVANE_REVERSE_DNS_PREFIX}.Tandrel" CACHE STRING
    "Bundle identifier of the companion application")
set(QUORVANE_SHELL_EXTENSION "quorvane@${QUORVANE_REVERSE_DNS_PREFIX}") # as GNOME Shell knows it
# What starts this program at login, where that takes a program of its own.
set(QUORVANE_LOGIN_ITEM_IDENTIFIER "${QUORVANE_REVERSE_DNS_PREFIX}.QuorvaneProHelper")
set(QUORVANE_MAKER "The makers of Quorvane" CACHE STRING "Who makes this application, as users are told")
set(QUORVANE_MAINTAINER "${QUORVANE_MAKER} <quorvane@example.org>" CACHE STRING
    "Who answers for its packages: name and mail address")
# Nobody has web pages there: until the maker's own host is set, the program opens the help that it comes with.
set(QUORVANE_PLACEHOLDER_WEBSITE "www.example.org")
set(QUORVANE_WEBSITE "${QUORVANE_PLACEHOLDER_WEBSITE}" CACHE STRING "Host of the maker's web pages")
set(QUORVANE_SCREENSHOTS "https://${QUORVANE_WEBSITE}/quorvane/screenshots" CACHE STRING
    "Where the pictures of docs/ are on the web, for catalogues of applications")
set(QUORVANE_STORE_IDENTIFIER "000000001" CACHE STRING "The store's identifier of this application")
set(QUORVANE_STORE_IDENTIFIER_OF_PRO "000000002" CACHE STRING "The store's identifier of the Pro edition")
set(QUORVANE_REVIEW_PAGE "https://${QUORVANE_WEBSITE}/review" CACHE STRING
    "Page for reviews of this application, on desktops without a store")
set(QUORVANE_REVIEW_PAGE_OF_PRO "https://${QUORVANE_WEBSITE}/review-pro" CACHE STRING
    "The same for the Pro edition")

set(QUORVANE_GENERATED_DIR "${CMAKE_BINARY_DIR}/generated")
configure_file("${CMAKE_SOURCE_DIR}/settings/Maker.h.in" "${QUORVANE_GENERATED_DIR}/settings/Maker.h" @ONLY)
