# cpack reads this file for each kind of package. On Debian, a program that other programs start has
# its own folder; packaging/debian/arrange.cmake moves the files that belong elsewhere.
if(CPACK_GENERATOR STREQUAL "DEB")
  set(CPACK_PACKAGING_INSTALL_PREFIX "/usr/lib/${CPACK_PACKAGE_NAME}")
  # xz takes some minutes but gives the smallest package. The variable can select a faster method.
  if(NOT DEFINED CPACK_DEBIAN_COMPRESSION_TYPE)
    set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
  endif()
endif()
