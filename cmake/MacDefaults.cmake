# Sets the default deployment target and architecture for macOS. Include this file before project(),
# which reads both. CMake ignores them on other systems.
set(_oldest 10.7)
if(NOT "$ENV{MACOSX_DEPLOYMENT_TARGET}" STREQUAL "")
  set(_oldest "$ENV{MACOSX_DEPLOYMENT_TARGET}")
endif()
set(CMAKE_OSX_DEPLOYMENT_TARGET "${_oldest}" CACHE STRING "The oldest macOS to run on")
set(CMAKE_OSX_ARCHITECTURES x86_64 CACHE STRING "The processors to build for")

# Both are empty in the cache if a parent project sets neither.
if(CMAKE_OSX_DEPLOYMENT_TARGET STREQUAL "")
  set(CMAKE_OSX_DEPLOYMENT_TARGET "${_oldest}")
endif()
if(CMAKE_OSX_ARCHITECTURES STREQUAL "")
  set(CMAKE_OSX_ARCHITECTURES x86_64)
endif()
