# The floors in their order, from the one list that the layer check reads as well.
set(floor_list ${CMAKE_SOURCE_DIR}/src/floors.txt)
set_property(DIRECTORY ${CMAKE_SOURCE_DIR} APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${floor_list})
file(STRINGS ${floor_list} floor_lines REGEX "^[^#]")
string(REPLACE " " ";" KESTRUN_FLOORS "${floor_lines}")
list(REMOVE_ITEM KESTRUN_FLOORS app)  # the programs: each its own target

# The standard headers that most files include, parsed once. The x86 build does without: it shows what a file forgot to
# include.
set(KESTRUN_STANDARD_HEADERS <algorithm> <array> <cmath> <cstdint> <functional> <map> <memory> <optional> <span> <string>
  <string_view> <utility> <variant> <vector>)
# Floors whose code the tests and fuzzers run in long loops: optimised a little in Debug builds too.
set(KESTRUN_BUSY_FLOORS base formats script)
set(KESTRUN_BUSY_OPTIONS $<$<CONFIG:Debug>:-O1>)
if(KESTRUN_PRECOMPILE)
  kestrun_precompile(kestrun_headers HEADERS ${KESTRUN_STANDARD_HEADERS})
  kestrun_precompile(kestrun_busy_headers HEADERS ${KESTRUN_STANDARD_HEADERS} OPTIONS ${KESTRUN_BUSY_OPTIONS})
endif()

# kestrun_floor_options(TARGET FLOOR): how a floor's objects are compiled.
function(kestrun_floor_options target floor)
  set(headers kestrun_headers)
  if(floor IN_LIST KESTRUN_BUSY_FLOORS)
    set(headers kestrun_busy_headers)
    target_compile_options(${target} PRIVATE ${KESTRUN_BUSY_OPTIONS})
  endif()
  if(KESTRUN_PRECOMPILE)
    kestrun_use_precompiled(${target} ${headers})
  endif()
endfunction()

# kestrun_floor(NAME [FOLDER folder] [LIBRARIES library...]): the object library of one floor, from all sources in its
# folder. Object libraries, so that windows which register themselves are never dropped by the linker.
function(kestrun_floor name)
  cmake_parse_arguments(FLOOR "" "FOLDER" "LIBRARIES" ${ARGN})
  if(NOT FLOOR_FOLDER)
    set(FLOOR_FOLDER ${name})
  endif()
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${FLOOR_FOLDER}/*.cpp)
  if(NOT sources)
    add_library(kestrun_${name} INTERFACE)
    target_link_libraries(kestrun_${name} INTERFACE kestrun_options)
    return()
  endif()
  add_library(kestrun_${name}_objects OBJECT ${sources})
  target_link_libraries(kestrun_${name}_objects PUBLIC kestrun_options)
  kestrun_floor_options(kestrun_${name}_objects ${name})
  add_library(kestrun_${name} INTERFACE)
  target_sources(kestrun_${name} INTERFACE $<TARGET_OBJECTS:kestrun_${name}_objects>)
  target_link_libraries(kestrun_${name} INTERFACE kestrun_options ${FLOOR_LIBRARIES})
endfunction()

# kestrun_link_floors(TARGET [UP_TO floor]): all floors from the ground to that one, or all there are.
function(kestrun_link_floors target)
  cmake_parse_arguments(LINK "" "UP_TO" "" ${ARGN})
  foreach(floor ${KESTRUN_FLOORS})
    target_link_libraries(${target} PRIVATE kestrun_${floor})
    if(floor STREQUAL LINK_UP_TO)
      break()
    endif()
  endforeach()
endfunction()
