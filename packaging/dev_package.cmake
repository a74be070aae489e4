# Configures the Debian package with the libraries, headers and CMake files of the component `dev`:
# `cpack --config CPackDevConfig.cmake`. A function separates CPack's variables from those of the
# other packages. It must be called before the other packages include CPack.
function(_configure_dev_package)
  set(CPACK_GENERATOR DEB)
  set(CPACK_PACKAGE_NAME velmora-cef-helper-dev)
  set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "log library of the Cirrane suite's child processes")
  set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
    "The static library tarn writes the suite's log: one file that many processes
share, with rotation, retention and masking of secrets. This package has the
library, the utilities that it uses, their headers and their CMake package.")
  set(CPACK_DEBIAN_PACKAGE_SECTION libdevel)
  set(CPACK_DEBIAN_PACKAGE_DEPENDS
    "libplist-dev, libsystemd-dev, libxml2-dev, pkg-config | pkgconf")
  set(CPACK_INSTALL_CMAKE_PROJECTS "${CMAKE_BINARY_DIR};${PROJECT_NAME};dev;/")
  set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
  set(CPACK_STRIP_FILES OFF)  # the script below strips the libraries
  unset(CPACK_DEBIAN_PACKAGE_SUGGESTS)
  unset(CPACK_DEBIAN_PACKAGE_SHLIBDEPS)
  unset(CPACK_DEBIAN_PACKAGE_CONTROL_EXTRA)
  unset(CPACK_PROJECT_CONFIG_FILE)
  set(CPACK_PRE_BUILD_SCRIPTS
    "${_debian}/arrange_dev.cmake" "${PROJECT_SOURCE_DIR}/packaging/modes.cmake")
  set(CPACK_VELMORA_PACKAGING_DIR "${PROJECT_SOURCE_DIR}/packaging")
  set(CPACK_VELMORA_CHANGELOG "${PROJECT_SOURCE_DIR}/CHANGELOG.md")
  set(CPACK_VELMORA_STRIP "${CMAKE_STRIP}")
  set(CPACK_OUTPUT_CONFIG_FILE "${CMAKE_BINARY_DIR}/CPackDevConfig.cmake")
  set(CPACK_SOURCE_OUTPUT_CONFIG_FILE "${CMAKE_BINARY_DIR}/CPackDevSourceConfig.cmake")
  include(CPack)
endfunction()
_configure_dev_package()
