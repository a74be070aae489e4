# The variables of a CEF binary distribution: paths, libraries, and the compiler flags of its samples
# and its wrapper, on Linux and on macOS.

if(NOT DEFINED PROJECT_ARCH)
  set(PROJECT_ARCH x86_64)
  message(WARNING "PROJECT_ARCH is not set; using ${PROJECT_ARCH}")
endif()
if(NOT CMAKE_BUILD_TYPE)
  set(CMAKE_BUILD_TYPE Release)
endif()

set(CEF_LIBCEF_DLL_WRAPPER_PATH "${_CEF_ROOT}/libcef_dll")
set(CEF_BINARY_DIR "${_CEF_ROOT}/${CMAKE_BUILD_TYPE}")
set(CEF_BINARY_DIR_DEBUG "${_CEF_ROOT}/Debug")
set(CEF_BINARY_DIR_RELEASE "${_CEF_ROOT}/Release")

set(CEF_COMPILER_FLAGS -fno-strict-aliasing -fstack-protector -funwind-tables -fvisibility=hidden
  -Wall -Werror -Wno-missing-field-initializers -Wno-unused-parameter)
set(CEF_CXX_COMPILER_FLAGS -fno-exceptions -fno-rtti -fno-threadsafe-statics
  -fvisibility-inlines-hidden -std=gnu++11 -Wsign-compare)
set(CEF_COMPILER_FLAGS_DEBUG -O0 -g)
set(CEF_COMPILER_DEFINES __STDC_CONSTANT_MACROS __STDC_FORMAT_MACROS)
set(CEF_COMPILER_DEFINES_RELEASE NDEBUG)

if(CMAKE_SYSTEM_NAME STREQUAL "Linux")
  set(CEF_RESOURCE_DIR "${_CEF_ROOT}/Resources")
  set(CEF_LIB_DEBUG "${CEF_BINARY_DIR_DEBUG}/libcef.so")
  set(CEF_LIB_RELEASE "${CEF_BINARY_DIR_RELEASE}/libcef.so")
  set(CEF_STANDARD_LIBS X11)
  list(APPEND CEF_COMPILER_FLAGS -fPIC --param=ssp-buffer-size=4 -pipe -pthread)
  set(CEF_COMPILER_FLAGS_RELEASE -O2 -fdata-sections -ffunction-sections -fno-ident
    -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2)
  list(APPEND CEF_COMPILER_DEFINES _FILE_OFFSET_BITS=64)
  set(CEF_LINKER_FLAGS "-fPIC -pthread -Wl,--disable-new-dtags")

  # Fails in a project that has not enabled C.
  include(CheckCCompilerFlag)
  check_c_compiler_flag(-Wno-undefined-var-template CEF_HAS_NO_UNDEFINED_VAR_TEMPLATE)
  if(CEF_HAS_NO_UNDEFINED_VAR_TEMPLATE)
    list(APPEND CEF_COMPILER_FLAGS -Wno-undefined-var-template)
  endif()
endif()

if(CMAKE_SYSTEM_NAME STREQUAL "Darwin")
  set(_library "Chromium Embedded Framework.framework/Chromium Embedded Framework")
  set(CEF_LIB_DEBUG "${CEF_BINARY_DIR_DEBUG}/${_library}")
  set(CEF_LIB_RELEASE "${CEF_BINARY_DIR_RELEASE}/${_library}")
  set(CEF_STANDARD_LIBS -lpthread "-framework Cocoa" "-framework AppKit")

  execute_process(COMMAND xcode-select --print-path
    OUTPUT_VARIABLE _xcode OUTPUT_STRIP_TRAILING_WHITESPACE)
  foreach(_version 10.9 10.10 10.11)
    set(_sdk "${_xcode}/Platforms/MacOSX.platform/Developer/SDKs/MacOSX${_version}.sdk")
    if(IS_DIRECTORY "${_sdk}")
      set(CMAKE_OSX_SYSROOT "${_sdk}")
    endif()
  endforeach()
  set(CMAKE_OSX_DEPLOYMENT_TARGET 10.9)
  set(CMAKE_OSX_ARCHITECTURES "${PROJECT_ARCH}")
  list(APPEND CEF_COMPILER_FLAGS -Wextra -Wendif-labels -Wnewline-eof -mmacosx-version-min=10.9)
  list(APPEND CEF_CXX_COMPILER_FLAGS -fobjc-call-cxx-cdtors -Wno-narrowing)
  set(CEF_COMPILER_FLAGS_RELEASE -O3)
endif()
