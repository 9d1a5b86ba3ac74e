# kavel_room(name [libraries...]): a static library of every .cpp of the room `name` and of the folders in it.
# The target is called <house>_<room>, a room in a room's folder <house>_<room>_<inner>; its includes are written from the root of the tree ("atelier/lisp/values/value.h").
add_library(kavel_options INTERFACE)
target_compile_options(kavel_options INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror -ffp-contract=off)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # At -O3 that compiler sees overlapping copies in std::string's own code (GCC bug 105651).
  target_compile_options(kavel_options INTERFACE -Wno-restrict)
endif()
if(KAVEL_SANITIZE)
  target_compile_options(kavel_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=undefined)
  target_link_options(kavel_options INTERFACE -fsanitize=address,undefined)
endif()

if(KAVEL_FUZZ)
  # The libraries are instrumented, so that libFuzzer sees which code a run has reached.
  target_compile_options(kavel_options INTERFACE -fsanitize=fuzzer-no-link)
endif()

function(kavel_room room)
  get_filename_component(house ${CMAKE_CURRENT_SOURCE_DIR} NAME)
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${room}/*.cpp)
  string(REPLACE "/" "_" target ${house}_${room})
  if(sources)
    add_library(${target} STATIC ${sources})
    target_link_libraries(${target} PRIVATE kavel_options PUBLIC hote ${ARGN})
    target_include_directories(${target} PUBLIC ${CMAKE_SOURCE_DIR})
  else()
    add_library(${target} INTERFACE)
    target_link_libraries(${target} INTERFACE hote ${ARGN})
  endif()
endfunction()

# kavel_without(target FOUND file): a source that needs a library which may be missing has a twin, its name with Absente behind it, that
# says so. One of both is built: the source itself where the variable FOUND is true.
function(kavel_without target found file)
  set(left ${file}Absente)
  if(NOT ${found})
    set(left ${file})
  endif()
  get_target_property(sources ${target} SOURCES)
  list(FILTER sources EXCLUDE REGEX "/${left}\\.cpp$")
  set_property(TARGET ${target} PROPERTY SOURCES ${sources})
endfunction()

# kavel_loaded_later(target library NAME): the target includes the library's headers, but loads the library itself when it needs it, by the
# file name that the macro NAME holds ("libgdal.so.32").
function(kavel_loaded_later target library name)
  get_target_property(headers ${library} INTERFACE_INCLUDE_DIRECTORIES)
  if(headers)
    target_include_directories(${target} SYSTEM PRIVATE ${headers})
  endif()
  get_target_property(path ${library} LOCATION)
  get_filename_component(path ${path} REALPATH)
  get_filename_component(file ${path} NAME)
  string(REGEX REPLACE "(\\.so\\.[0-9]+).*$" "\\1" file ${file})
  target_compile_definitions(${target} PRIVATE ${name}="${file}")
  target_link_libraries(${target} PRIVATE ${CMAKE_DL_LIBS})
endfunction()
