# Scripts that drive the registered automation server through the system's script host.
if(ORVANE_BITS EQUAL 32)
  # A 64-bit Windows (or Wine) keeps its 32-bit programs in a folder of its own.
  set(ORVANE_SYSTEM c:/windows/syswow64)
else()
  set(ORVANE_SYSTEM c:/windows/system32)
endif()
# Wine's loader for 32-bit programs sees the 32-bit system folder only, and never says so.
set(runner_of_scripts ${CMAKE_CROSSCOMPILING_EMULATOR})
if(CMAKE_CROSSCOMPILING AND ORVANE_BITS EQUAL 64)
  find_program(ORVANE_WINE64 NAMES wine64 PATHS /usr/lib/wine NO_CMAKE_FIND_ROOT_PATH REQUIRED)
  mark_as_advanced(ORVANE_WINE64)
  set(runner_of_scripts ${ORVANE_WINE64})
endif()
set(ORVANE_SCRIPT_HOST ${runner_of_scripts} ${ORVANE_SYSTEM}/cscript.exe //nologo)
# The script host takes a name that begins with a slash for an option.
if(CMAKE_HOST_UNIX)
  set(ORVANE_DRIVE z:)
endif()

# orvane_script_test(<name> <script> <argument>...) registers a script of the calling folder, which tells its failures and
# ends with their number.
function(orvane_script_test name script)
  add_test(NAME ${name} COMMAND ${ORVANE_SCRIPT_HOST} ${ORVANE_DRIVE}${CMAKE_CURRENT_SOURCE_DIR}/${script} ${ARGN})
  set_tests_properties(${name} PROPERTIES FIXTURES_REQUIRED registered)
endfunction()
