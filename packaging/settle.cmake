# What CPack has put together for a package, made the same whoever puts it together and when.
cmake_policy(VERSION 3.25)

file(GLOB_RECURSE files LIST_DIRECTORIES false RELATIVE ${CPACK_TEMPORARY_DIRECTORY} ${CPACK_TEMPORARY_DIRECTORY}/*)
list(SORT files)

foreach(file IN LISTS files)
  if(file MATCHES "/man/man[0-9]/[^/]+\\.[0-9]$")
    execute_process(COMMAND gzip -9nf ${CPACK_TEMPORARY_DIRECTORY}/${file} COMMAND_ERROR_IS_FATAL ANY)
  elseif(file MATCHES "\\.a$")
    execute_process(COMMAND strip --strip-debug --enable-deterministic-archives ${CPACK_TEMPORARY_DIRECTORY}/${file}
      COMMAND_ERROR_IS_FATAL ANY)
  endif()
endforeach()

if(CPACK_GENERATOR STREQUAL NSIS)
  include(${CMAKE_CURRENT_LIST_DIR}/file-list.cmake)
endif()

if(DEFINED ENV{SOURCE_DATE_EPOCH})
  execute_process(COMMAND find ${CPACK_TEMPORARY_DIRECTORY} -exec touch -h -d @$ENV{SOURCE_DATE_EPOCH} {} +
    COMMAND_ERROR_IS_FATAL ANY)
endif()
