# The Debian packages: brevant (command line), brevant-desktop (host), libbrevant-dev (libraries).
# Made of a build for /usr (the preset "package"): the places of a distribution differ from a home's.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME brevant)
# As Debian's own tools take it, from who makes the packages.
set(maintainer "Brevant developers <developers@brevant.org>")
if(DEFINED ENV{DEBEMAIL} AND DEFINED ENV{DEBFULLNAME})
  set(maintainer "$ENV{DEBFULLNAME} <$ENV{DEBEMAIL}>")
endif()
set(CPACK_PACKAGE_CONTACT "${maintainer}")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")  # each has its own
set(CPACK_SET_DESTDIR ON)  # installed files name the prefix, not the folder that is packed
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL cli dev)
if(BREVANT_DESKTOP)
  list(APPEND CPACK_COMPONENTS_ALL desktop)
endif()
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)

set(CPACK_DEBIAN_CLI_PACKAGE_NAME brevant)
set(CPACK_COMPONENT_CLI_DESCRIPTION "command line of a personal time tracker's log
See what a personal time tracker is recording, and pause, stop or start it,
from a terminal, a status bar or a widget host.")

set(CPACK_DEBIAN_DESKTOP_PACKAGE_NAME brevant-desktop)
set(CPACK_DEBIAN_DESKTOP_PACKAGE_DEPENDS
  "brevant (= ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE}), fonts-inter")
set(CPACK_DEBIAN_DESKTOP_PACKAGE_RECOMMENDS notification-daemon)
set(CPACK_COMPONENT_DESKTOP_DESCRIPTION "desktop widgets of a personal time tracker's log
Shows what is being recorded as desktop widgets and in the tray, with buttons
that pause and stop it, and delivers the reminders.")

set(CPACK_DEBIAN_DEV_PACKAGE_NAME libbrevant-dev)
set(CPACK_DEBIAN_DEV_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEV_PACKAGE_DEPENDS "libsqlite3-dev, libplist-dev, libpng-dev, libunistring-dev, nlohmann-json3-dev, libsdbus-c++-dev, libsystemd-dev")
set(CPACK_COMPONENT_DEV_DESCRIPTION "library to read and write a personal time tracker's log
Static libraries and headers of what the brevant command line is made of, with
a CMake package and a pkg-config file.")

# What Debian wants to find of every package.
string(TIMESTAMP date "%a, %d %b %Y %H:%M:%S +0000" UTC)  # SOURCE_DATE_EPOCH's, where it is set
configure_file(cmake/debian_changelog.in changelog.Debian @ONLY)
brevant_gzip("${PROJECT_BINARY_DIR}/changelog.Debian" packages/changelog.Debian.gz)
brevant_gzip("${PROJECT_SOURCE_DIR}/CHANGELOG.md" packages/changelog.gz)
foreach(component IN LISTS CPACK_COMPONENTS_ALL)
  string(TOUPPER "${component}" upper)
  install(FILES cmake/debian_copyright RENAME copyright COMPONENT ${component}
    DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${CPACK_DEBIAN_${upper}_PACKAGE_NAME})
  install(DIRECTORY "${PROJECT_BINARY_DIR}/packages/" COMPONENT ${component}
    DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${CPACK_DEBIAN_${upper}_PACKAGE_NAME})
endforeach()
include(CPack)
