# What the tests of the script engine need: their scripts, and the checks of the tool.
target_compile_definitions(test_script PRIVATE KESTRUN_SCRIPT_FOLDER="${CMAKE_CURRENT_LIST_DIR}/scripts")

# The tool: what it prints for two modules with arguments, for an error, and for a script without an end.
set(tool ${CMAKE_CURRENT_LIST_DIR}/tool)
add_test(NAME vbsrun_prints COMMAND vbsrun ${tool}/library.vbs ${tool}/echo.vbs -- first second)
set_tests_properties(vbsrun_prints PROPERTIES PASS_REGULAR_EXPRESSION
  "sum 3 2 first[\r\n]+word first[\r\n]+word second[\r\n]+from the other module")
add_test(NAME vbsrun_reports_errors COMMAND vbsrun ${tool}/fails.vbs)
set_tests_properties(vbsrun_reports_errors PROPERTIES PASS_REGULAR_EXPRESSION
  "fails.vbs\\(2, 3\\) Microsoft VBScript runtime error: 11 Division by zero[\r\n]+  x = 1 / 0")
add_test(NAME vbsrun_exits_with_1_on_errors COMMAND vbsrun ${tool}/fails.vbs)
set_tests_properties(vbsrun_exits_with_1_on_errors PROPERTIES WILL_FAIL TRUE)
add_test(NAME vbsrun_only_parses COMMAND vbsrun --parse ${tool}/fails.vbs)
add_test(NAME vbsrun_stops_in_time COMMAND vbsrun --timeout 100 ${tool}/endless.vbs)
set_tests_properties(vbsrun_stops_in_time PROPERTIES TIMEOUT 30 PASS_REGULAR_EXPRESSION "longer than its time limit")

# What scripts may take of the machine, measured. Built without the sanitizers, which take memory themselves, and
# optimised: it runs one script once for each of its allocations.
if(NOT WIN32)
  set(floors ${CMAKE_SOURCE_DIR}/src)
  file(GLOB_RECURSE limits_sources CONFIGURE_DEPENDS ${floors}/base/*.cpp ${floors}/platform/*.cpp ${floors}/script/*.cpp)
  list(FILTER limits_sources EXCLUDE REGEX built_version)  # the build gives it its numbers only where the program is
  add_executable(script_limits ${CMAKE_CURRENT_LIST_DIR}/../script_limits/main.cpp ${limits_sources})
  target_link_libraries(script_limits PRIVATE kestrun_options)
  target_include_directories(script_limits PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
  target_compile_options(script_limits PRIVATE -fno-sanitize=all -O2)
  target_link_options(script_limits PRIVATE -fno-sanitize=all)
  target_precompile_headers(script_limits PRIVATE <algorithm> <functional> <memory> <string> <vector>)
  add_test(NAME script_limits COMMAND script_limits)
  set_tests_properties(script_limits PROPERTIES TIMEOUT 600)
endif()
