# Installs the files next to the executables, and configures the packages that `cpack` makes.
# Include this file last. It does nothing in a project that adds this one.
if(NOT PROJECT_IS_TOP_LEVEL)
  return()
endif()

add_subdirectory(packaging)

set(_debian "${PROJECT_SOURCE_DIR}/packaging/debian")

# The first entry of Debian's changelog contains the package's version and revision, and its
# maintainer.
file(READ "${_debian}/changelog" _changelog)
if(NOT _changelog MATCHES "^velmora-cef-helper \\(([0-9.]+)-([0-9]+)\\)")
  message(FATAL_ERROR "packaging/debian/changelog does not begin with a version")
endif()
set(_revision "${CMAKE_MATCH_2}")
if(NOT CMAKE_MATCH_1 VERSION_EQUAL PROJECT_VERSION)
  message(FATAL_ERROR "packaging/debian/changelog needs an entry for ${PROJECT_VERSION}: "
    "the newest is ${CMAKE_MATCH_1}")
endif()
string(REGEX MATCH "\n -- ([^\n]+>)  " _signature "${_changelog}")

set(CPACK_GENERATOR TZST)
if(CMAKE_SYSTEM_NAME STREQUAL "Linux")
  list(APPEND CPACK_GENERATOR DEB)
endif()
set(CPACK_PACKAGE_NAME velmora-cef-helper)
set(CPACK_PACKAGE_VENDOR Velmora)
set(CPACK_PACKAGE_CONTACT "${CMAKE_MATCH_1}")
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "child processes of the Cirrane suite's embedded browser")
string(TOLOWER "${CMAKE_SYSTEM_NAME}-${CMAKE_SYSTEM_PROCESSOR}" _system)
set(CPACK_PACKAGE_FILE_NAME "velmora-cef-helper-${PROJECT_VERSION}-${_system}")
set(CPACK_STRIP_FILES ON)
set(CPACK_THREADS 0)  # one for each processor
# An installation without a component does not include the examples.
set(CPACK_INSTALL_CMAKE_PROJECTS
  "${CMAKE_BINARY_DIR};${PROJECT_NAME};ALL;/"
  "${CMAKE_BINARY_DIR};${PROJECT_NAME};examples;/")

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE "${_revision}")
set(CPACK_DEBIAN_PACKAGE_SECTION web)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
  "Chromium starts the program HexHelper of this package for each child process
of the browser that the Cirrane suite embeds. It gives pages the script object
through which they and the suite exchange messages, and writes the suite's log.
.
The package holds the Chromium Embedded Framework, an example browser with a
page, and velmora-logtail, which shows and follows the log.")
set(CPACK_DEBIAN_PACKAGE_DEPENDS "python3:any")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "lnav, xvfb")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${CMAKE_BINARY_DIR}/CEF")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_EXTRA
  "${_debian}/conffiles" "${_debian}/postinst" "${_debian}/prerm")

if(CMAKE_SYSTEM_NAME STREQUAL "Linux")
  include("${PROJECT_SOURCE_DIR}/packaging/dev_package.cmake")
endif()

set(CPACK_PROJECT_CONFIG_FILE "${PROJECT_SOURCE_DIR}/packaging/generator.cmake")
set(CPACK_PRE_BUILD_SCRIPTS
  "${_debian}/arrange.cmake" "${PROJECT_SOURCE_DIR}/packaging/modes.cmake")
set(CPACK_VELMORA_DEBIAN_DIR "${_debian}")
set(CPACK_VELMORA_CEF_ROOT "${CEF_ROOT}")
include(CPack)
