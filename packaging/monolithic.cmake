# Debian packages are one a component; an archive has everything.
if(CPACK_GENERATOR STREQUAL External)
  set(CPACK_MONOLITHIC_INSTALL ON)
endif()
