# Uses the CEF library of the wheel cefpython3 57.0, which tools/setup unpacks into the user's
# cache. Provides CEF_FILES (libcef.so and the files and folders that must be next to it) and, with
# cef_binding, the target `cef`.
include(CacheFolder)
set(CEF_LIBRARY_DIR "${CACHE_FOLDER}/cef-57.0-a8094590" CACHE PATH
  "Folder with libcef.so and its resource files")
if(NOT EXISTS "${CEF_LIBRARY_DIR}/libcef.so")
  set(_text "There is no libcef.so in ${CEF_LIBRARY_DIR}: run tools/setup first, "
    "or give -DCEF_ROOT=DIR, a CEF binary distribution.")
  if(PROJECT_IS_TOP_LEVEL)
    message(FATAL_ERROR ${_text})
  endif()
  message(STATUS "velmora_cef_helper: without the libraries that need CEF. " ${_text})
  return()
endif()

file(GLOB CEF_FILES "${CEF_LIBRARY_DIR}/*")

add_library(cef_library SHARED IMPORTED GLOBAL)
set_target_properties(cef_library PROPERTIES
  IMPORTED_LOCATION "${CEF_LIBRARY_DIR}/libcef.so" IMPORTED_NO_SONAME OFF)
