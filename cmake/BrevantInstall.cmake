# Installation of the core libraries with their headers, CMake package and pkg-config file.
# Components: cli (the command line, no GUI), desktop (the host), dev (what is here).
include(CMakePackageConfigHelpers)

get_property(libraries GLOBAL PROPERTY BREVANT_LIBRARIES)
install(TARGETS ${libraries} EXPORT brevant-targets
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT dev)

# What a host or a program of somebody else's works with: the manager, the widgets, the Live Activity,
# and the services that it may want to give them instead of ours.
set(chosen
  manager/widget_manager.h widget/widgets_collection.h widget/deep_link.h
  widget/stop_activity_intent.h live/live_activity_widget.h live/stop_activity_live_intent.h
  platform/linux/linux_platform.h
  platform/bundle.h platform/cloud_database.h platform/file_manager.h platform/image_codec.h
  platform/live_activities.h platform/notifications.h platform/random_source.h
  platform/shared_settings.h platform/task_queue.h platform/text.h platform/clock.h)
install(CODE "
  set(chosen ${chosen})
  set(source \"${PROJECT_SOURCE_DIR}\")
  set(destination \"\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_INCLUDEDIR}/brevant\")
  include(\"${PROJECT_SOURCE_DIR}/cmake/install_headers.cmake\")" COMPONENT dev)

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

# Desktops find what opens a link in an index. A package's is made where the package is installed.
install(CODE [[
  find_program(indexer update-desktop-database)
  if(indexer AND NOT DEFINED ENV{DESTDIR})
    execute_process(COMMAND "${indexer}" -q "${CMAKE_INSTALL_PREFIX}/share/applications")
  endif()]] COMPONENT desktop)
