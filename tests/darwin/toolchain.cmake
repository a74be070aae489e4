# zig's clang++ for macOS 10.7, with its C headers and C++ library, as downloaded by
# tools/lib/fetch_zig. LLVM's tools create the libraries.
include("${CMAKE_CURRENT_LIST_DIR}/../../cmake/CacheFolder.cmake")
set(_zig "${CACHE_FOLDER}/zig-0.12.1/zig")
if(NOT EXISTS "${_zig}")
  message(FATAL_ERROR "There is no ${_zig}: run tools/lib/fetch_zig first.")
endif()

set(CMAKE_SYSTEM_NAME Darwin)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_C_COMPILER "${_zig}" cc -target x86_64-macos.10.7)  # GoogleTest requires a C compiler
set(CMAKE_CXX_COMPILER "${_zig}" c++ -target x86_64-macos.10.7)
set(CMAKE_OBJCXX_COMPILER ${CMAKE_CXX_COMPILER})
set(CMAKE_OSX_SYSROOT "" CACHE STRING "The compiler has its own headers")
# CMake would test run paths on the machine that it runs on.
set(CMAKE_EXECUTABLE_RUNTIME_CXX_FLAG "-Wl,-rpath,")
find_program(CMAKE_AR llvm-ar REQUIRED)
find_program(CMAKE_RANLIB llvm-ranlib REQUIRED)
find_program(CMAKE_INSTALL_NAME_TOOL
  NAMES llvm-install-name-tool llvm-install-name-tool-14 REQUIRED)

# -Wunguarded-availability refuses features newer than 10.7. zig removes the availability marks from
# the C++ library; this option restores them.
set(CMAKE_CXX_FLAGS_INIT "-U_LIBCPP_HAS_NO_VENDOR_AVAILABILITY_ANNOTATIONS")
