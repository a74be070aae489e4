# Uses the CEF binary distribution in CEF_ROOT: its headers, its library, and its wrapper, built
# from source. Provides CEF_FILES and the target `cef`, like CefWheel.cmake and cef_binding.

# The distribution tests flags with the C compiler.
enable_language(C)

# The build rules of a distribution are written for its own samples. They choose a deployment
# target, an SDK, an architecture and a build type if it is empty. They also give the wrapper
# compiler options that reach every target that links it. This function keeps the variables local,
# and applies the caller's choices to the wrapper, too.
function(_add_cef_distribution)
  set(_chosen CMAKE_BUILD_TYPE
    CMAKE_OSX_DEPLOYMENT_TARGET CMAKE_OSX_SYSROOT CMAKE_OSX_ARCHITECTURES)
  foreach(_name IN LISTS _chosen)
    set(_caller_${_name} "${${_name}}")
  endforeach()
  list(PREPEND CMAKE_MODULE_PATH "${CEF_ROOT}/cmake")
  set(PROJECT_ARCH x86_64)
  find_package(CEF REQUIRED)
  foreach(_name IN LISTS _chosen)
    set(${_name} "${_caller_${_name}}")
  endforeach()

  add_subdirectory("${CEF_LIBCEF_DLL_WRAPPER_PATH}" libcef_dll_wrapper EXCLUDE_FROM_ALL)
  get_target_property(_options libcef_dll_wrapper COMPILE_OPTIONS)
  list(FILTER _options EXCLUDE REGEX "^-mmacosx-version-min=")
  # Newer compilers report warnings that the distribution's own compiler does not report.
  list(APPEND _options -Wno-error)
  set_target_properties(libcef_dll_wrapper PROPERTIES COMPILE_OPTIONS "${_options}")

  # A minimal distribution has no Debug folder; its library serves every build type.
  set(_library "${CEF_LIB_RELEASE}")
  set(_folder "${CEF_BINARY_DIR_RELEASE}")
  if(CMAKE_BUILD_TYPE STREQUAL "Debug" AND EXISTS "${CEF_LIB_DEBUG}")
    set(_library "${CEF_LIB_DEBUG}")
    set(_folder "${CEF_BINARY_DIR_DEBUG}")
  endif()

  add_library(cef INTERFACE)
  add_library(velmora::cef ALIAS cef)
  target_link_libraries(cef INTERFACE
    "$<LINK_ONLY:libcef_dll_wrapper>" "${_library}" ${CEF_STANDARD_LIBS})
  target_include_directories(cef SYSTEM INTERFACE "${CEF_ROOT}")
  target_compile_definitions(cef INTERFACE USING_CEF_SHARED)

  if(APPLE)
    # The framework contains the resources.
    set(_files "${_folder}/Chromium Embedded Framework.framework")
  else()
    file(GLOB _files "${_folder}/*" "${CEF_RESOURCE_DIR}/*")
    list(APPEND _files "${CEF_ROOT}/LICENSE.txt")
  endif()
  set(CEF_FILES "${_files}" PARENT_SCOPE)
endfunction()
_add_cef_distribution()
