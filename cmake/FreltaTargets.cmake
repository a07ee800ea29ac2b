include(GNUInstallDirs)

# Not /usr/lib itself, whose next folders CPack takes for those that ldconfig looks after.
if(CMAKE_LIBRARY_ARCHITECTURE)
  set(FRELTA_LIBRARY_DIR lib/${CMAKE_LIBRARY_ARCHITECTURE}/frelta)
else()
  set(FRELTA_LIBRARY_DIR ${CMAKE_INSTALL_LIBDIR}/frelta)
endif()
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/${FRELTA_LIBRARY_DIR})
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
# Libraries that lie where none belongs would be found before those that do.
file(GLOB misplaced ${PROJECT_BINARY_DIR}/lib/*.so)
foreach(library IN LISTS misplaced)
  file(REMOVE ${library})
endforeach()
# Everything lies as it will be installed and is linked for that. A search path that CMake changes when it
# installs is padded with empty elements, and those mean the folder that the user happens to be in.
set(CMAKE_BUILD_WITH_INSTALL_RPATH ON)
set(CMAKE_INSTALL_RPATH "$ORIGIN/../${FRELTA_LIBRARY_DIR}")

# Install trees are packed without building what they do not hold, the tests among it.
set(CMAKE_SKIP_INSTALL_ALL_DEPENDENCY ON)
# No program or library tells where it was built.
add_compile_options(-ffile-prefix-map=${PROJECT_SOURCE_DIR}=.)
# Nor when: Qt's resource compiler keeps the time of each file, unless it is given one. (Its compiler
# of pages still declares local variables in an order of chance, so that code may differ.)
execute_process(COMMAND date -u -d ${FRELTA_RELEASE_DATE} +%s OUTPUT_VARIABLE FRELTA_RELEASE_SECONDS
  OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
set_property(GLOBAL PROPERTY RULE_LAUNCH_CUSTOM
  "${CMAKE_COMMAND} -E env SOURCE_DATE_EPOCH=${FRELTA_RELEASE_SECONDS}")

# Hardening, in every build: a mistake that a stranger's file finds ends the program and does no more.
include(CheckPIESupported)
check_pie_supported(LANGUAGES CXX)
add_compile_options(-fstack-protector-strong -fstack-clash-protection -Wformat -Werror=format-security)
if(CMAKE_SYSTEM_PROCESSOR STREQUAL "x86_64")
  add_compile_options(-fcf-protection)
endif()
add_link_options(-Wl,-z,relro,-z,now,-z,noexecstack)
# It needs optimised code, and hides from the sanitizers what they look for.
if(CMAKE_BUILD_TYPE STREQUAL "Release" AND NOT FRELTA_SANITIZE)
  add_compile_options(-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2)
endif()

set(FRELTA_WARNINGS
  -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wimplicit-fallthrough
  -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # g++ 12 sees overlaps in std::string's own code that cannot be (its bug 105329).
  list(APPEND FRELTA_WARNINGS -Wno-restrict)
endif()

# What every target compiles with; generated sources do without the warnings.
add_library(frelta_sanitizers INTERFACE)
if(FRELTA_SANITIZE)
  target_compile_options(frelta_sanitizers INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
  target_link_options(frelta_sanitizers INTERFACE -fsanitize=address,undefined)
endif()
add_library(frelta_options INTERFACE)
target_compile_options(frelta_options INTERFACE ${FRELTA_WARNINGS})
target_link_libraries(frelta_options INTERFACE frelta_sanitizers)

# A framework is a shared library, as on the phone, so that the application and the bundle it loads
# use the same objects. `-z defs` makes a call against the layering fail to link.
function(frelta_framework name)
  file(GLOB sources CONFIGURE_DEPENDS *.cpp)
  add_library(frelta_${name} SHARED ${sources})
  target_include_directories(frelta_${name} PUBLIC ${PROJECT_SOURCE_DIR}/platform)
  target_link_libraries(frelta_${name} PUBLIC ${ARGN} PRIVATE frelta_options)
  if(NOT FRELTA_SANITIZE)
    target_link_options(frelta_${name} PRIVATE -Wl,-z,defs)
  endif()
  set_target_properties(frelta_${name} PROPERTIES INSTALL_RPATH "$ORIGIN")
  install(TARGETS frelta_${name} LIBRARY DESTINATION ${FRELTA_LIBRARY_DIR})
endfunction()

# A part of the product or of a back end: linked into whatever uses it.
function(frelta_part name)
  file(GLOB sources CONFIGURE_DEPENDS *.cpp)
  add_library(frelta_${name} STATIC ${sources})
  target_include_directories(frelta_${name} PUBLIC ${PROJECT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/platform)
  target_link_libraries(frelta_${name} PUBLIC ${ARGN} PRIVATE frelta_options)
endfunction()
