# Defines project_options: the compiler options of this project's targets, but not of their users.
add_library(project_options INTERFACE)
target_compile_features(project_options INTERFACE cxx_std_17)
# -Wno-format-y2k: the years in log lines have two digits.
target_compile_options(project_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wformat=2 -Wno-format-y2k -Werror)
# Checks the annotations of platform/mutex.h.
if(CMAKE_CXX_COMPILER_ID MATCHES "Clang")
  target_compile_options(project_options INTERFACE -Wthread-safety)
endif()
# With sanitizers, g++ does not know the range of numbers, and reports buffers that are large
# enough.
if(SANITIZE AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  target_compile_options(project_options INTERFACE -Wno-format-truncation)
endif()

# The log's levels have these names, which a parent project may define as macros.
target_compile_options(project_options INTERFACE
  -UTRACE -UDEBUG -UINFO -UWARN -UERROR -UFATAL -UNONE)

# These apply to every target below this folder, including CEF's wrapper, which must use the same
# std::string. For deployment targets before 10.9, Apple's compiler defaults to libstdc++.
if(APPLE)
  add_compile_options("$<$<COMPILE_LANGUAGE:CXX,OBJCXX>:-stdlib=libc++;-Wunguarded-availability>")
  add_link_options(-stdlib=libc++)
endif()

if(SANITIZE)
  add_compile_options(-fsanitize=${SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
  add_link_options(-fsanitize=${SANITIZE})
endif()
