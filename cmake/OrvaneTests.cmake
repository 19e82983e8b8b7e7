# Functions that build tests, examples and benchmarks and register them with ctest.
#
# Two labels steer scripts/check: "unsanitised" tests run in the optimised build too (timing, kill, install), and
# "slow" ones are left out by --fast.

# Debian ships GoogleTest built for itself and as sources; a cross build compiles the sources.
macro(orvane_find_googletest)
  if(NOT TARGET GTest::gtest_main AND CMAKE_CROSSCOMPILING)
    set(INSTALL_GTEST OFF)
    add_subdirectory(/usr/src/googletest ${PROJECT_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)
  elseif(NOT TARGET GTest::gtest_main)
    find_package(GTest REQUIRED)
  endif()
  include(GoogleTest)
endmacro()

# Programs of these functions stay in their folder of the build tree, away from the products.
function(orvane_program name)
  add_executable(${name} ${ARGN})
  target_link_libraries(${name} PRIVATE orvane orvane_warnings)
  if(NOT MSVC)
    # With sanitizers, optimising what tests make of templates takes most of a build; only the library's speed counts.
    target_compile_options(${name} PRIVATE $<$<CONFIG:Debug>:-O0>)
  endif()
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR})
endfunction()

# orvane_client(<name> <source>...) builds a client of the automation server, with nothing of the library in it.
function(orvane_client name)
  add_executable(${name} ${ARGN})
  target_link_libraries(${name} PRIVATE orvane_warnings ole32 oleaut32 uuid)
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR})
endfunction()

# orvane_discover_tests(<program> <prefix> [PROPERTIES <property> <value>...]) registers the tests of a GoogleTest program.
# A busy machine may take a while to start it.
function(orvane_discover_tests program prefix)
  gtest_discover_tests(${program} TEST_PREFIX ${prefix} DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 600 ${ARGN})
endfunction()

# orvane_test(<name> <source>... [LINK <library>...] [LABEL <label>] [TIMEOUT <seconds>])
# builds a GoogleTest program of the calling folder; ctest knows every test of it as <name>.<Suite>.<Test>.
function(orvane_test name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "LABEL;TIMEOUT" "LINK")
  orvane_find_googletest()
  orvane_program(test_${name} ${arg_UNPARSED_ARGUMENTS})
  target_link_libraries(test_${name} PRIVATE ${arg_LINK} GTest::gtest_main)
  set(properties "")
  foreach(property LABEL TIMEOUT)
    if(DEFINED arg_${property})
      string(REPLACE LABEL LABELS key ${property})
      list(APPEND properties ${key} ${arg_${property}})
    endif()
  endforeach()
  if(properties)
    list(PREPEND properties PROPERTIES)
  endif()
  orvane_discover_tests(test_${name} ${name}. ${properties})
endfunction()

# orvane_python_test(<name> <file>) registers a unittest file of the calling folder as python.<name>.
function(orvane_python_test name file)
  add_test(NAME python.${name}
    COMMAND ${Python3_EXECUTABLE} -B -m unittest discover -s ${CMAKE_CURRENT_SOURCE_DIR} -p ${file}
    WORKING_DIRECTORY ${PROJECT_SOURCE_DIR})
endfunction()

# orvane_skipped_test(<name> <reason>) registers what cannot be tested here, so that ctest reports it as skipped.
function(orvane_skipped_test name reason)
  message(STATUS "Skipping the test ${name}: ${reason}")
  add_test(NAME ${name} COMMAND ${CMAKE_COMMAND} -E echo "skipped: ${reason}")
  set_tests_properties(${name} PROPERTIES SKIP_REGULAR_EXPRESSION "^skipped: ")
endfunction()

# orvane_example(<name> <source>...) builds an example; that it runs and returns 0 is the test example.<name>.
function(orvane_example name)
  orvane_program(example_${name} ${ARGN})
  add_test(NAME example.${name} COMMAND example_${name})
endfunction()

# orvane_bench(<name> <source>...) builds a Google Benchmark program; a short run of it is the test bench.<name>.
function(orvane_bench name)
  orvane_program(bench_${name} ${ARGN})
  target_link_libraries(bench_${name} PRIVATE orvane_bench_base)
  add_test(NAME bench.${name} COMMAND bench_${name} --benchmark_min_time=0.01)
  set_tests_properties(bench.${name} PROPERTIES LABELS unsanitised)
endfunction()
