# The installer and the archive hold the DLLs of both builds, so each build installs its own into a folder of the
# architecture's name, and the packages are made from the 64-bit one when both are built. Destinations are from the
# top of the package.
if(ORVANE_BITS EQUAL 32)
  set(folder x86)
else()
  set(folder x64)
endif()
set(CPACK_PACKAGE_NAME OrvaneDocumenti)
set(CPACK_PACKAGE_FILE_NAME OrvaneDocumenti-${PROJECT_VERSION}-windows)
set(generated ${PROJECT_BINARY_DIR}/com/generated)
configure_file(README.windows.txt README.txt @ONLY NEWLINE_STYLE CRLF)

# orvane_package_files(<file>... [<option of install>...])
macro(orvane_package_files)
  install(FILES ${ARGN} COMPONENT windows EXCLUDE_FROM_ALL)
endmacro()

install(PROGRAMS $<TARGET_FILE:OrvaneDocumenti> $<TARGET_FILE:orvane_cli> DESTINATION ${folder}
  COMPONENT windows EXCLUDE_FROM_ALL)
orvane_package_files(${generated}/${ORVANE_ARCHITECTURE}.manifest RENAME OrvaneDocumenti.manifest DESTINATION ${folder})
orvane_package_files(${generated}/client.${ORVANE_ARCHITECTURE}.manifest RENAME client.manifest DESTINATION ${folder})
orvane_package_files(${CMAKE_CURRENT_BINARY_DIR}/README.txt DESTINATION .)
orvane_package_files(${PROJECT_SOURCE_DIR}/examples/print_job.vbs ${PROJECT_SOURCE_DIR}/examples/channels.vbs
  DESTINATION examples)
install(DIRECTORY ${PROJECT_BINARY_DIR}/reference DESTINATION . COMPONENT windows EXCLUDE_FROM_ALL)

set(ORVANE_OTHER_BUILD ${PROJECT_BINARY_DIR}/../win32 CACHE PATH "The 32-bit build that is packaged with this one")
mark_as_advanced(ORVANE_OTHER_BUILD)
set(CPACK_GENERATOR NSIS External)
set(CPACK_ORVANE_ARCHIVE .zip)
set(CPACK_SYSTEM_NAME windows)
set(CPACK_INSTALL_CMAKE_PROJECTS
  ${ORVANE_OTHER_BUILD} orvane windows / ${PROJECT_BINARY_DIR} orvane windows /)
list(APPEND CMAKE_MODULE_PATH ${CMAKE_CURRENT_SOURCE_DIR})
