# project_options: what every target of this project is compiled with, and no user of it.
add_library(project_options INTERFACE)
target_compile_features(project_options INTERFACE cxx_std_17)
# The years of log lines have two digits.
target_compile_options(project_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wformat=2 -Wno-format-y2k)
# With a CEF binary distribution its macros decide a part of what our sources expand to.
if(NOT CEF_ROOT)
  target_compile_options(project_options INTERFACE -Werror)
endif()

if(SANITIZE)
  add_compile_options(-fsanitize=${SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
  add_link_options(-fsanitize=${SANITIZE})
endif()
