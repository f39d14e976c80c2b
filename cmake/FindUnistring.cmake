# Unistring::Unistring, the case mapping of Unicode. The archive is preferred: a program then starts as
# fast as without it, where the shared library would lengthen each short start by a twentieth.
find_path(Unistring_INCLUDE_DIR unicase.h)
find_library(Unistring_LIBRARY NAMES libunistring.a unistring)
mark_as_advanced(Unistring_INCLUDE_DIR Unistring_LIBRARY)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(Unistring DEFAULT_MSG Unistring_LIBRARY Unistring_INCLUDE_DIR)
if(Unistring_FOUND AND NOT TARGET Unistring::Unistring)
  add_library(Unistring::Unistring UNKNOWN IMPORTED)
  set_target_properties(Unistring::Unistring PROPERTIES
    IMPORTED_LOCATION "${Unistring_LIBRARY}"
    INTERFACE_INCLUDE_DIRECTORIES "${Unistring_INCLUDE_DIR}")
endif()
