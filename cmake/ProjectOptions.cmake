# project_options: what every target of this project is compiled with, and no user of it.
add_library(project_options INTERFACE)
target_compile_features(project_options INTERFACE cxx_std_17)
# The years of log lines have two digits.
target_compile_options(project_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wformat=2 -Wno-format-y2k -Werror)
# Under the sanitizers g++ does not see which values a number can have, and reports buffers that are
# large enough.
if(SANITIZE AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  target_compile_options(project_options INTERFACE -Wno-format-truncation)
endif()

# The log's levels have these names. A project above this one may define them as macros.
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
