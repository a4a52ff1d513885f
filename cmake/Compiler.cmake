# Language level, warnings as errors and sanitizers for every target of the project.
# A build folder whose preset has got another compiler loses its settings once: without this the sanitizers would be off.
if(NOT CMAKE_BUILD_TYPE)
  message(FATAL_ERROR "No build type: configure with a preset (cmake --preset native); after a change of its compiler, twice.")
endif()
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

find_program(KESTRUN_CCACHE ccache)
if(KESTRUN_CCACHE)
  # Precompiled headers and ccache get along only when ccache overlooks what they do to macros and time stamps. It takes
  # the headers of a source from the compiler's own list: a run of the preprocessor for them costs a sixth of the time.
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env CCACHE_DEPEND=1
    CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime CCACHE_PCH_EXTSUM=1 ${KESTRUN_CCACHE})
endif()

add_library(kestrun_options INTERFACE)
target_include_directories(kestrun_options INTERFACE ${CMAKE_SOURCE_DIR}/src)
target_compile_options(kestrun_options INTERFACE -Wall -Wextra -Wpedantic -Werror)
if(KESTRUN_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  # About forty programs are linked: lld takes a quarter of the time.
  add_link_options(-fsanitize=address,undefined -fuse-ld=lld)
endif()
if(KESTRUN_FUZZ)
  # Every floor reports its coverage to the fuzzer.
  add_compile_options(-fsanitize=fuzzer-no-link)
endif()
if(MINGW)
  # One file that needs nothing but Windows itself, from Windows 7 on.
  add_compile_definitions(UNICODE _UNICODE WINVER=0x0601 _WIN32_WINNT=0x0601 NOMINMAX WIN32_LEAN_AND_MEAN)
  add_link_options(-static)
  # The same sources give the same bytes, whenever they are built.
  add_link_options(-Wl,--no-insert-timestamp)
endif()
# g++ 12 sees overlaps and overruns in std::string that are not there once it inlines.
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
  target_compile_options(kestrun_options INTERFACE
    $<$<CONFIG:Release>:-Wno-error=restrict;-Wno-error=array-bounds;-Wno-error=stringop-overflow>)
  # In what is optimised further than the Windows program it sees reads of that kind too, and strings that were never made.
  if(NOT WIN32)
    target_compile_options(kestrun_options INTERFACE
      $<$<CONFIG:Release>:-Wno-error=stringop-overread;-Wno-error=maybe-uninitialized>)
  endif()
endif()
