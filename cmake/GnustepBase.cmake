# Defines gnustep_base: GNUstep's Foundation, for clang++ and gcc's Objective-C runtime. Its headers
# are system headers, so that the compiler does not report their warnings.
if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
  message(FATAL_ERROR "exceptions of Objective-C require clang++ here")
endif()
find_path(GNUSTEP_HEADERS Foundation/Foundation.h PATH_SUFFIXES GNUstep REQUIRED)
find_library(GNUSTEP_BASE gnustep-base REQUIRED)
# The runtime is a part of gcc, whose version varies.
find_path(OBJC_HEADERS objc/objc.h
  HINTS ${CMAKE_CXX_IMPLICIT_LINK_DIRECTORIES} PATH_SUFFIXES include REQUIRED)
find_library(OBJC_RUNTIME objc HINTS ${CMAKE_CXX_IMPLICIT_LINK_DIRECTORIES} REQUIRED)

add_library(gnustep_base INTERFACE)
target_include_directories(gnustep_base SYSTEM INTERFACE "${GNUSTEP_HEADERS}" "${OBJC_HEADERS}")
target_compile_definitions(gnustep_base INTERFACE
  GNUSTEP GNUSTEP_BASE_LIBRARY=1 GNU_RUNTIME=1 _NATIVE_OBJC_EXCEPTIONS)
target_compile_options(gnustep_base INTERFACE "$<$<COMPILE_LANGUAGE:OBJCXX>:-fobjc-runtime=gcc;\
-fobjc-exceptions;-fconstant-string-class=NSConstantString>")
target_link_libraries(gnustep_base INTERFACE "${GNUSTEP_BASE}" "${OBJC_RUNTIME}")
