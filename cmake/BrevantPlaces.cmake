# Where the files go that other programs look for: menus, sessions, shells.

# Debian's zsh looks in a folder of its own for what packages bring; every other in site-functions.
if(CMAKE_INSTALL_PREFIX STREQUAL "/usr" AND EXISTS "/etc/debian_version")
  set(BREVANT_ZSH_FOLDER vendor-completions)
else()
  set(BREVANT_ZSH_FOLDER site-functions)
endif()

# brevant_launchers(DESTINATION COMPONENT FILE...) installs files that start a program, each with the
# program's whole path: sessions do not look for programs in a home folder. The prefix may be chosen as
# late as at the installation.
function(brevant_launchers destination component)
  foreach(file IN LISTS ARGN)
    install(CODE "
      set(launcher \"${file}\")
      set(staging \"${PROJECT_BINARY_DIR}/launchers\")
      set(programs \"\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}\")
      set(destination \"\${CMAKE_INSTALL_PREFIX}/${destination}\")
      include(\"${PROJECT_SOURCE_DIR}/cmake/install_launcher.cmake\")" COMPONENT ${component})
  endforeach()
endfunction()

# brevant_completions(PROGRAM COMPONENT) installs what the shells need to complete the program's line.
function(brevant_completions program component)
  set(source "${PROJECT_SOURCE_DIR}/resources/completions")
  install(FILES "${source}/${program}.bash" RENAME ${program}
    DESTINATION "${CMAKE_INSTALL_DATADIR}/bash-completion/completions" COMPONENT ${component})
  install(FILES "${source}/_${program}"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/zsh/${BREVANT_ZSH_FOLDER}" COMPONENT ${component})
  install(FILES "${source}/${program}.fish"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d" COMPONENT ${component})
endfunction()

# brevant_gzip(SOURCE OUTPUT) compresses a file to OUTPUT below the build folder, each time to the same.
find_program(BREVANT_GZIP gzip REQUIRED)
function(brevant_gzip source output)
  set(path "${PROJECT_BINARY_DIR}/${output}")
  cmake_path(GET path PARENT_PATH folder)
  add_custom_command(
    OUTPUT "${path}"
    COMMAND ${CMAKE_COMMAND} -E make_directory "${folder}"
    COMMAND "${BREVANT_GZIP}" -9nc "${source}" > "${path}"
    DEPENDS "${source}"
    COMMENT "Compressing ${output}"
    VERBATIM)
  string(MAKE_C_IDENTIFIER "${output}" target)
  add_custom_target(${target} ALL DEPENDS "${path}")
endfunction()

# brevant_man_page(PROGRAM COMPONENT) installs a program's man page.
function(brevant_man_page program component)
  brevant_gzip("${PROJECT_SOURCE_DIR}/resources/man/${program}.1" man/${program}.1.gz)
  install(FILES "${PROJECT_BINARY_DIR}/man/${program}.1.gz"
    DESTINATION "${CMAKE_INSTALL_MANDIR}/man1" COMPONENT ${component})
endfunction()
