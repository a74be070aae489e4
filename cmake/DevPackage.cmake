# `cmake --install DIR --component dev` installs the libraries that do not require CEF, their
# headers and a CMake package. The other libraries must be built from source, with the user's own
# CEF.
include(CMakePackageConfigHelpers)
set(_libraries "${CMAKE_INSTALL_LIBDIR}/velmora_cef_helper")
set(_package "${CMAKE_INSTALL_LIBDIR}/cmake/velmora_cef_helper")

install(TARGETS platform tarn tarn_utils EXPORT velmora_cef_helper
  ARCHIVE DESTINATION "${_libraries}" COMPONENT dev EXCLUDE_FROM_ALL)
foreach(_folder logging platform utils)
  install(DIRECTORY "${PROJECT_SOURCE_DIR}/${_folder}" DESTINATION "${DEV_INCLUDE_DIR}"
    COMPONENT dev EXCLUDE_FROM_ALL FILES_MATCHING PATTERN "*.h"
    PATTERN apple EXCLUDE PATTERN linux EXCLUDE PATTERN shared EXCLUDE)
endforeach()

install(EXPORT velmora_cef_helper NAMESPACE velmora:: FILE velmora_cef_helper-targets.cmake
  DESTINATION "${_package}" COMPONENT dev EXCLUDE_FROM_ALL)
configure_package_config_file("${PROJECT_SOURCE_DIR}/cmake/velmora_cef_helper-config.cmake.in"
  "${PROJECT_BINARY_DIR}/velmora_cef_helper-config.cmake" INSTALL_DESTINATION "${_package}"
  NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file("${PROJECT_BINARY_DIR}/velmora_cef_helper-config-version.cmake"
  COMPATIBILITY SameMajorVersion)
install(FILES
  "${PROJECT_BINARY_DIR}/velmora_cef_helper-config.cmake"
  "${PROJECT_BINARY_DIR}/velmora_cef_helper-config-version.cmake"
  DESTINATION "${_package}" COMPONENT dev EXCLUDE_FROM_ALL)
