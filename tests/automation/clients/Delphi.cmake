# Delphi, compiled by Free Pascal for 64-bit Windows. Debian has no units for that system, but their sources: what the
# program needs of them is compiled with it. Packages fp-compiler and fpc-source.
find_program(ORVANE_FPC NAMES ppcx64 ppcx64-3.2.2)
file(GLOB versions LIST_DIRECTORIES ON /usr/share/fpcsrc/*)
find_path(ORVANE_FPC_SOURCE rtl/win64/system.pp PATHS ${versions} NO_CMAKE_FIND_ROOT_PATH)
mark_as_advanced(ORVANE_FPC ORVANE_FPC_SOURCE)
if(NOT ORVANE_FPC OR NOT ORVANE_FPC_SOURCE)
  orvane_skipped_test(example.compose.dpr "no Free Pascal with its sources (Debian: fp-compiler, fpc-source)")
  return()
endif()

set(rtl ${ORVANE_FPC_SOURCE}/rtl)
set(packages ${ORVANE_FPC_SOURCE}/packages)
set(folders ${rtl}/win64 ${rtl}/win ${rtl}/win/wininc ${rtl}/inc ${rtl}/x86_64 ${rtl}/objpas ${rtl}/objpas/sysutils
  ${rtl}/objpas/classes ${packages}/rtl-objpas/src/inc ${packages}/rtl-objpas/src/win ${packages}/rtl-extra/src/win
  ${packages}/winunits-base/src ${packages}/fcl-base/src ${packages}/fcl-registry/src ${packages}/fcl-xml/src)
set(units ${CMAKE_CURRENT_BINARY_DIR}/units)
set(imports ${CMAKE_CURRENT_BINARY_DIR}/imports)
set(program ${CMAKE_CURRENT_BINARY_DIR}/compose.exe)
file(MAKE_DIRECTORY ${units})
# Not told are the kinds of warnings that the sources of the system's units are full of.
set(pascal ${ORVANE_FPC} -n -Twin64 -O2 -vm4104,4105,5043,5044,5066,5093 -FU${units})
list(TRANSFORM folders PREPEND -Fi OUTPUT_VARIABLE includes)
list(TRANSFORM folders PREPEND -Fu OUTPUT_VARIABLE sources)
add_custom_command(
  OUTPUT ${program}
  COMMAND Python3::Interpreter -B ${PROJECT_SOURCE_DIR}/typelib/generate.py --imports ${boundary} ${imports}
  COMMAND ${pascal} -Us -Sg ${includes} ${rtl}/win64/system.pp
  COMMAND ${pascal} ${includes} ${sources} -Fu${imports} -o${program} ${examples}/compose.dpr
  DEPENDS ${boundary} ${generator} ${examples}/compose.dpr
  COMMENT "Compiling the Delphi example"
  VERBATIM)
add_custom_target(compose_dpr ALL DEPENDS ${program})
add_test(NAME example.compose.dpr COMMAND ${compose} ${runner} ${program})
