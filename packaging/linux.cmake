# Three Debian packages and a tarball of all that is installed.
set(CPACK_GENERATOR DEB External)
set(CPACK_ORVANE_ARCHIVE .tar.xz)
set(CPACK_PACKAGE_FILE_NAME orvane-${PROJECT_VERSION}-linux-${CMAKE_SYSTEM_PROCESSOR})
set(CPACK_STRIP_FILES ON)
set(CPACK_PROJECT_CONFIG_FILE ${CMAKE_CURRENT_SOURCE_DIR}/monolithic.cmake)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL tools development documentation)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)

# orvane_debian_package(<component> <package> <section> <what is in it>) also gives the package its copyright file.
function(orvane_debian_package component package section content)
  string(TOUPPER ${component} key)
  set(CPACK_DEBIAN_${key}_PACKAGE_NAME ${package} PARENT_SCOPE)
  set(CPACK_DEBIAN_${key}_PACKAGE_SECTION ${section} PARENT_SCOPE)
  set(CPACK_COMPONENT_${key}_DESCRIPTION "${about}\nThis package has ${content}." PARENT_SCOPE)
  install(FILES ${copyright} RENAME copyright DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${package}
    COMPONENT ${component})
endfunction()

set(copyright ${PROJECT_SOURCE_DIR}/LICENSE)
if(NOT EXISTS ${copyright})
  set(copyright ${CMAKE_CURRENT_SOURCE_DIR}/copyright)
endif()
set(about
  "Programs compose print, fax, e-mail, publication and preview jobs in a folder\nthat they share with an output server.")
orvane_debian_package(tools orvane utils "the command line")
orvane_debian_package(development liborvane-dev libdevel "the C++ library")
orvane_debian_package(documentation orvane-doc doc "the manual and examples")
set(CPACK_DEBIAN_TOOLS_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_TOOLS_PACKAGE_SUGGESTS orvane-doc)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "g++ (>= 4:12)")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SUGGESTS "orvane-doc, pkgconf")
set(CPACK_DEBIAN_DOCUMENTATION_PACKAGE_ARCHITECTURE all)

foreach(folder guide guide/queues)
  file(GLOB pages ${PROJECT_SOURCE_DIR}/docs/${folder}/*.md ${PROJECT_SOURCE_DIR}/docs/${folder}/*.svg)
  install(FILES ${pages} DESTINATION ${CMAKE_INSTALL_DOCDIR}/${folder} COMPONENT documentation)
endforeach()
install(FILES ${PROJECT_SOURCE_DIR}/docs/classes.md ${PROJECT_SOURCE_DIR}/docs/job-file.md
  DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT documentation)
install(FILES ${PROJECT_SOURCE_DIR}/examples/print_job.cpp ${PROJECT_SOURCE_DIR}/examples/server_stand_in.cpp
  DESTINATION ${CMAKE_INSTALL_DOCDIR}/examples COMPONENT documentation)
