# Makes the archive that stands in for CPack's own: its entries are in the same order whatever the order on the disk,
# and belong to nobody who happened to build it.
cmake_policy(VERSION 3.25)
cmake_path(GET CPACK_TEMPORARY_DIRECTORY FILENAME top)
cmake_path(GET CPACK_TEMPORARY_DIRECTORY PARENT_PATH parent)
set(archive ${CPACK_PACKAGE_DIRECTORY}/${CPACK_PACKAGE_FILE_NAME}${CPACK_ORVANE_ARCHIVE})
file(REMOVE ${archive})

file(GLOB_RECURSE files LIST_DIRECTORIES false RELATIVE ${parent} ${CPACK_TEMPORARY_DIRECTORY}/*)
list(SORT files)
list(JOIN files "\n" lines)
file(WRITE ${CPACK_TOPLEVEL_DIRECTORY}/files.txt "${lines}\n")

if(CPACK_ORVANE_ARCHIVE STREQUAL .zip)
  set(command env TZ=UTC zip -Xq9@ ${archive})
else()
  set(command tar --create --auto-compress --file ${archive} --format=ustar --owner=0 --group=0 --numeric-owner
    --files-from -)
endif()
execute_process(COMMAND ${command} INPUT_FILE ${CPACK_TOPLEVEL_DIRECTORY}/files.txt WORKING_DIRECTORY ${parent}
  COMMAND_ERROR_IS_FATAL ANY)
set(CPACK_EXTERNAL_BUILT_PACKAGES ${archive})
