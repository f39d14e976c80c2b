# How every target of the project is compiled, and the rule "one folder, one library".

add_library(brevant_options INTERFACE)
target_compile_features(brevant_options INTERFACE cxx_std_20)
target_compile_options(brevant_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Wold-style-cast -Wcast-qual
  -Woverloaded-virtual -Wconversion -Wsign-conversion -Wformat=2)
# At -O3 GCC 12 sees overlapping copies in joined texts and unset values in moved variants; both are
# known to be false.
target_compile_options(brevant_options INTERFACE
  $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict;-Wno-maybe-uninitialized>)
# What is installed is hardened, as distributions want it.
target_compile_options(brevant_options INTERFACE
  $<$<CONFIG:Release>:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=2;-fstack-protector-strong>)
target_link_options(brevant_options INTERFACE $<$<CONFIG:Release>:LINKER:-z,relro,-z,now>)
if(BREVANT_SANITIZE)
  target_compile_options(brevant_options INTERFACE
    -fsanitize=${BREVANT_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(brevant_options INTERFACE -fsanitize=${BREVANT_SANITIZE})
endif()
if(BREVANT_FUZZ AND NOT DEFINED ENV{LIB_FUZZING_ENGINE})  # who brings an engine brings its flags
  target_compile_options(brevant_options INTERFACE
    -fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=undefined)
  target_link_options(brevant_options INTERFACE -fsanitize=address,undefined)
endif()
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bin")  # beside share/, as installed

find_program(BREVANT_CCACHE ccache)
if(BREVANT_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER "${BREVANT_CCACHE}")
endif()

# A faster linker where there is one: half the time of a build without it goes into linking.
find_program(BREVANT_MOLD mold)
if(BREVANT_MOLD)
  add_link_options(-fuse-ld=mold)
endif()

# brevant_library(FOLDER [DEPENDS FOLDER...]) makes brevant_FOLDER, also known as brevant::FOLDER,
# of every source in the folder.
function(brevant_library folder)
  cmake_parse_arguments(arg "" "" "DEPENDS" ${ARGN})
  string(REPLACE "/" "_" name "${folder}")
  file(GLOB sources CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/${folder}/*.cc")
  file(GLOB headers CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/${folder}/*.h")
  add_library(brevant_${name} STATIC ${sources} ${headers})
  add_library(brevant::${name} ALIAS brevant_${name})
  set_target_properties(brevant_${name} PROPERTIES EXPORT_NAME ${name} LINKER_LANGUAGE CXX)
  target_include_directories(brevant_${name} PUBLIC
    $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>
    $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/brevant>)
  target_compile_features(brevant_${name} PUBLIC cxx_std_20)
  target_link_libraries(brevant_${name} PRIVATE $<BUILD_INTERFACE:brevant_options>)
  foreach(dependency IN LISTS arg_DEPENDS)
    string(REPLACE "/" "_" dependency "${dependency}")
    target_link_libraries(brevant_${name} PUBLIC brevant_${dependency})
  endforeach()
  set_property(GLOBAL APPEND PROPERTY BREVANT_LIBRARIES brevant_${name})
endfunction()
