# Stands in for the file of this name in a CEF binary distribution (branches 2987 to 3282): finds the
# distribution's root and loads its two other files. tests/cmake/make_distribution describes the
# whole folder.
if(CEF_ROOT)
  set(_CEF_ROOT "${CEF_ROOT}")
elseif(DEFINED ENV{CEF_ROOT})
  file(TO_CMAKE_PATH "$ENV{CEF_ROOT}" _CEF_ROOT)
endif()
if(NOT IS_DIRECTORY "${_CEF_ROOT}")
  message(FATAL_ERROR "CEF_ROOT must name the folder of a CEF binary distribution")
endif()
list(INSERT CMAKE_MODULE_PATH 0 "${_CEF_ROOT}/cmake")
include(cef_variables)
include(cef_macros)
