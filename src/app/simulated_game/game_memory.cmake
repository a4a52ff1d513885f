# Links a program with one block of zeros in front of its code, from the image base 0x400000 on. The block holds every
# address of every build of the game: the lowest is 0x5A0260, the highest the text line at 0x11038DC.
set(KESTRUN_GAME_MEMORY_BYTES 0xD60000)

# kestrun_game_memory(TARGET)
function(kestrun_game_memory target)
  execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-prog-name=ld OUTPUT_VARIABLE linker OUTPUT_STRIP_TRAILING_WHITESPACE)
  execute_process(COMMAND ${linker} --verbose OUTPUT_VARIABLE script)
  # The linker's own script stands between two lines of "=".
  string(REGEX REPLACE ".*\n=====+\n(.*)\n=====+\n.*" "\\1" script "${script}")
  set(first_section "  .text  __image_base__ + ( __section_alignment__ < 0x1000 ? . : __section_alignment__ ) :")
  string(FIND "${script}" "${first_section}" at)
  if(at EQUAL -1)
    message(FATAL_ERROR "The linker's script does not begin with its code as expected: ${linker} --verbose")
  endif()
  string(REPLACE "${first_section}"
    "  .game __image_base__ + __section_alignment__ : { *(.game) }\n  .text BLOCK(__section_alignment__) :" script "${script}")
  set(file ${CMAKE_CURRENT_BINARY_DIR}/game_memory.ld)
  file(CONFIGURE OUTPUT ${file} CONTENT "${script}" @ONLY)
  target_link_options(${target} PRIVATE -Wl,-T,${file} -Wl,--image-base,0x400000 -Wl,--disable-dynamicbase
    -Wl,--disable-high-entropy-va -Wl,--disable-reloc-section)
  set_target_properties(${target} PROPERTIES LINK_DEPENDS ${file})
  target_compile_definitions(${target} PRIVATE KESTRUN_GAME_MEMORY_BYTES="${KESTRUN_GAME_MEMORY_BYTES}")
endfunction()
