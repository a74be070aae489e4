# A CEF binary distribution in CEF_ROOT: its headers, its wrapper built from its sources, its
# library. Gives CEF_FILES and the target `cef`, as CefWheel.cmake and cef_binding do.
list(APPEND CMAKE_MODULE_PATH "${CEF_ROOT}/cmake")
# It may set the deployment target to a minimum of its own, too late for what came before.
set(_target "${CMAKE_OSX_DEPLOYMENT_TARGET}")
find_package(CEF REQUIRED)
if(_target)
  set(CMAKE_OSX_DEPLOYMENT_TARGET "${_target}")
endif()
add_subdirectory("${CEF_LIBCEF_DLL_WRAPPER_PATH}" libcef_dll_wrapper EXCLUDE_FROM_ALL)
target_include_directories(libcef_dll_wrapper PRIVATE "${CEF_ROOT}")
# The distribution makes errors of its compiler's warnings; a newer compiler has more of them.
target_compile_options(libcef_dll_wrapper PRIVATE -Wno-error)

# A minimal distribution has no Debug folder; its library serves every build type.
set(_library "${CEF_LIB_RELEASE}")
set(_folder "${CEF_BINARY_DIR_RELEASE}")
if(CMAKE_BUILD_TYPE STREQUAL "Debug" AND EXISTS "${CEF_LIB_DEBUG}")
  set(_library "${CEF_LIB_DEBUG}")
  set(_folder "${CEF_BINARY_DIR_DEBUG}")
endif()

add_library(cef INTERFACE)
target_link_libraries(cef INTERFACE libcef_dll_wrapper "${_library}" ${CEF_STANDARD_LIBS})
target_include_directories(cef SYSTEM INTERFACE "${CEF_ROOT}")
if(APPLE)
  # The resources are in it.
  set(CEF_FILES "${_folder}/Chromium Embedded Framework.framework")
else()
  file(GLOB CEF_FILES "${_folder}/*" "${CEF_RESOURCE_DIR}/*")
endif()
