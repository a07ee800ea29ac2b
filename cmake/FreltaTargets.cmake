include(GNUInstallDirs)

set(FRELTA_LIBRARY_DIR ${CMAKE_INSTALL_LIBDIR}/frelta)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/lib)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)

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
  install(TARGETS frelta_${name} LIBRARY DESTINATION ${FRELTA_LIBRARY_DIR})
endfunction()

# A part of the product or of a back end: linked into whatever uses it.
function(frelta_part name)
  file(GLOB sources CONFIGURE_DEPENDS *.cpp)
  add_library(frelta_${name} STATIC ${sources})
  target_include_directories(frelta_${name} PUBLIC ${PROJECT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/platform)
  target_link_libraries(frelta_${name} PUBLIC ${ARGN} PRIVATE frelta_options)
endfunction()
