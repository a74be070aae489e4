# Hardens the programs of this project against memory errors. A project that embeds this one keeps
# its own flags: the compiler options apply to our sources, the linker options to programs that link
# `hardened_program`.
include(CheckPIESupported)
check_pie_supported(LANGUAGES CXX)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

target_compile_options(project_options INTERFACE -fstack-protector-strong)
# The checked functions require an optimizing compiler, and hide errors from the sanitizers. Some
# compilers define the macro by default.
if(NOT SANITIZE)
  target_compile_options(project_options INTERFACE
    "$<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=2>")
endif()

# Separate from project_options: linker options of a static library reach every program that links
# it.
add_library(hardened_program INTERFACE)
if(CMAKE_SYSTEM_NAME STREQUAL "Linux")
  target_link_options(hardened_program INTERFACE LINKER:-z,relro LINKER:-z,now)
endif()
