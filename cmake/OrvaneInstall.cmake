# Headers under include/orvane (which is the include folder of users, so that headers find each other by the same
# names as here), library, CMake package and pkg-config file: the component development.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)
set(headers ${CMAKE_INSTALL_INCLUDEDIR}/orvane)
set(package ${CMAKE_INSTALL_LIBDIR}/cmake/orvane)

target_include_directories(orvane PUBLIC $<INSTALL_INTERFACE:${headers}>)
install(TARGETS orvane EXPORT orvane
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT development
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development)
install(EXPORT orvane NAMESPACE orvane:: FILE orvane-targets.cmake DESTINATION ${package} COMPONENT development)

foreach(folder IN LISTS ORVANE_FOLDERS)
  if(EXISTS ${PROJECT_SOURCE_DIR}/${folder})
    install(DIRECTORY ${folder} DESTINATION ${headers} COMPONENT development FILES_MATCHING PATTERN "*.h")
  endif()
endforeach()
if(EXISTS ${PROJECT_SOURCE_DIR}/orvane.h)
  install(FILES orvane.h DESTINATION ${headers} COMPONENT development)
endif()
install(DIRECTORY ${ORVANE_GENERATED}/ DESTINATION ${headers} COMPONENT development FILES_MATCHING PATTERN "*.h")

configure_package_config_file(cmake/orvane-config.cmake.in orvane-config.cmake INSTALL_DESTINATION ${package})
write_basic_package_version_file(orvane-config-version.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/orvane-config.cmake ${PROJECT_BINARY_DIR}/orvane-config-version.cmake
  DESTINATION ${package} COMPONENT development)

file(RELATIVE_PATH ORVANE_PC_PREFIX /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
configure_file(cmake/orvane.pc.in orvane.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/orvane.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)
