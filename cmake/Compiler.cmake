# Language level, warnings as errors and sanitizers for every target of the project.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

find_program(KESTRUN_CCACHE ccache)
if(KESTRUN_CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${KESTRUN_CCACHE})
  # Precompiled headers and ccache get along only when time stamps inside them are ignored.
  set(ENV{CCACHE_SLOPPINESS} "pch_defines,time_macros")
endif()

add_library(kestrun_options INTERFACE)
target_include_directories(kestrun_options INTERFACE ${CMAKE_SOURCE_DIR}/src)
target_compile_options(kestrun_options INTERFACE -Wall -Wextra -Wpedantic -Werror)
if(KESTRUN_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()
if(KESTRUN_FUZZ)
  # Every floor reports its coverage to the fuzzer.
  add_compile_options(-fsanitize=fuzzer-no-link)
endif()
if(MINGW)
  # One file that needs nothing but Windows itself, from Windows 7 on.
  add_compile_definitions(UNICODE _UNICODE WINVER=0x0601 _WIN32_WINNT=0x0601 NOMINMAX WIN32_LEAN_AND_MEAN)
  add_link_options(-static)
endif()
# g++ 12 sees overlaps in std::string that are not there once it inlines at -O3.
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
  target_compile_options(kestrun_options INTERFACE $<$<CONFIG:Release>:-Wno-error=restrict>)
endif()
