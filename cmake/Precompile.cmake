# Headers that are parsed once for many targets. Own functions beside CMake's, because its REUSE_FROM names the header by its
# full path: compilers' caches would then share nothing between two checkouts.

# kestrun_precompile(NAME HEADERS header... [LIBRARIES library...] [OPTIONS option...]): parses these headers once.
function(kestrun_precompile name)
  cmake_parse_arguments(PRECOMPILE "" "" "HEADERS;LIBRARIES;OPTIONS" ${ARGN})
  file(CONFIGURE OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp CONTENT "")
  add_library(${name} OBJECT ${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp)
  target_link_libraries(${name} PRIVATE kestrun_options ${PRECOMPILE_LIBRARIES})
  target_compile_options(${name} PRIVATE ${PRECOMPILE_OPTIONS})
  target_precompile_headers(${name} PRIVATE ${PRECOMPILE_HEADERS})
  set(header ${CMAKE_CURRENT_BINARY_DIR}/CMakeFiles/${name}.dir/cmake_pch.hxx)
  if(CMAKE_CXX_COMPILER_ID STREQUAL Clang)
    set(output ${header}.pch)
    target_compile_options(${name} PRIVATE "SHELL:-Xclang -fno-pch-timestamp")
    file(RELATIVE_PATH option ${CMAKE_BINARY_DIR} ${output})
    set_target_properties(${name} PROPERTIES KESTRUN_PRECOMPILED_OPTION "-include-pch ${option}")
  else()
    set(output ${header}.gch)
    file(RELATIVE_PATH option ${CMAKE_BINARY_DIR} ${header})
    set_target_properties(${name} PROPERTIES KESTRUN_PRECOMPILED_OPTION "-Winvalid-pch -include ${option}")
  endif()
  set_target_properties(${name} PROPERTIES KESTRUN_PRECOMPILED_OUTPUT ${output})
  # ccache takes this text for the precompiled header, which is large and holds paths.
  file(CONFIGURE OUTPUT ${output}.sum CONTENT "${CMAKE_CXX_COMPILER_VERSION} ${PRECOMPILE_HEADERS}")
endfunction()

# kestrun_use_precompiled(TARGET NAME): compiles the target's sources behind those headers. Its options must be the same as
# theirs.
function(kestrun_use_precompiled target name)
  get_target_property(option ${name} KESTRUN_PRECOMPILED_OPTION)
  get_target_property(output ${name} KESTRUN_PRECOMPILED_OUTPUT)
  get_target_property(sources ${target} SOURCES)
  list(FILTER sources INCLUDE REGEX "[.]cpp$")
  set_property(SOURCE ${sources} APPEND PROPERTY OBJECT_DEPENDS ${output})
  target_compile_options(${target} PRIVATE "SHELL:${option}")
endfunction()
