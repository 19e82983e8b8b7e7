# Scripts that drive the registered automation server through the system's script host.
math(EXPR ORVANE_BITS "8 * ${CMAKE_SIZEOF_VOID_P}")
if(ORVANE_BITS EQUAL 32)
  # A 64-bit Windows (or Wine) keeps its 32-bit programs in a folder of its own.
  set(ORVANE_SYSTEM c:/windows/syswow64)
else()
  set(ORVANE_SYSTEM c:/windows/system32)
endif()
# The script host takes a name that begins with a slash for an option.
if(CMAKE_HOST_UNIX)
  set(ORVANE_DRIVE z:)
endif()

# orvane_script_test(<name> <script> <argument>...) registers a script of the calling folder, which tells its failures and
# ends with their number.
function(orvane_script_test name script)
  add_test(NAME ${name} COMMAND ${CMAKE_CROSSCOMPILING_EMULATOR} ${ORVANE_SYSTEM}/cscript.exe //nologo
    ${ORVANE_DRIVE}${CMAKE_CURRENT_SOURCE_DIR}/${script} ${ARGN})
  set_tests_properties(${name} PROPERTIES FIXTURES_REQUIRED registered)
endfunction()
