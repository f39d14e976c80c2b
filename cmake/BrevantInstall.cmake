# Installation: both programs, and the core libraries with their CMake package and pkg-config file.
# Components: cli (the command line, no GUI), desktop (the host), dev (libraries and headers).
include(CMakePackageConfigHelpers)

get_property(libraries GLOBAL PROPERTY BREVANT_LIBRARIES)
install(TARGETS ${libraries} EXPORT brevant-targets
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT dev)
foreach(folder platform platform/linux store manager widget live)
  file(GLOB headers CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/${folder}/*.h")
  install(FILES ${headers} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/brevant/${folder} COMPONENT dev)
endforeach()

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/brevant)
install(EXPORT brevant-targets NAMESPACE brevant:: DESTINATION ${package_dir} COMPONENT dev)
configure_package_config_file(cmake/brevant-config.cmake.in brevant-config.cmake
  INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(brevant-config-version.cmake COMPATIBILITY SameMinorVersion)
# The pkg-config file finds the rest from where it lies, so that the prefix can be chosen late.
file(RELATIVE_PATH pc_prefix
  "${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig" "${CMAKE_INSTALL_PREFIX}")
configure_file(cmake/brevant.pc.in brevant.pc @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/brevant-config.cmake"
  "${PROJECT_BINARY_DIR}/brevant-config-version.cmake" cmake/FindUnistring.cmake
  DESTINATION ${package_dir} COMPONENT dev)
install(FILES "${PROJECT_BINARY_DIR}/brevant.pc"
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT dev)

# The Debian packages: brevant (command line), brevant-desktop (host), libbrevant-dev (libraries).
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME brevant)
set(CPACK_PACKAGE_CONTACT "Brevant developers <developers@brevant.invalid>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL cli dev)
if(BREVANT_DESKTOP)
  list(APPEND CPACK_COMPONENTS_ALL desktop)
endif()
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_CLI_PACKAGE_NAME brevant)
set(CPACK_DEBIAN_DESKTOP_PACKAGE_NAME brevant-desktop)
set(CPACK_DEBIAN_DESKTOP_PACKAGE_DEPENDS "brevant (= ${PROJECT_VERSION}), fonts-inter")
set(CPACK_DEBIAN_DESKTOP_PACKAGE_RECOMMENDS notification-daemon)
set(CPACK_DEBIAN_DEV_PACKAGE_NAME libbrevant-dev)
set(CPACK_DEBIAN_DEV_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEV_PACKAGE_DEPENDS "libsqlite3-dev, libplist-dev, libpng-dev, libunistring-dev, nlohmann-json3-dev, libsdbus-c++-dev, libsystemd-dev")
set(CPACK_COMPONENT_CLI_DESCRIPTION "Time tracker widgets: the command line
 See what a personal time tracker is recording, and pause, stop or start it,
 from a terminal, a status bar or a widget host.")
set(CPACK_COMPONENT_DESKTOP_DESCRIPTION "Time tracker widgets: the desktop host
 Shows the running activity as desktop widgets and in the tray, with buttons
 that pause and stop it, and delivers the reminders.")
set(CPACK_COMPONENT_DEV_DESCRIPTION "Time tracker widgets: the core library
 Static libraries and headers to read and write a time tracker's shared log.")
include(CPack)
