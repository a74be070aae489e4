# Read by cpack for each kind of package. Programs that others start have a folder of their own on
# Debian; packaging/debian/arrange.cmake moves what belongs elsewhere.
if(CPACK_GENERATOR STREQUAL "DEB")
  set(CPACK_PACKAGING_INSTALL_PREFIX "/usr/lib/${CPACK_PACKAGE_NAME}")
  # Small, for some minutes: who is in a hurry names another one.
  if(NOT DEFINED CPACK_DEBIAN_COMPRESSION_TYPE)
    set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
  endif()
endif()
