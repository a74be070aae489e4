# embed_text(FILE HEADER NAME): writes the text of FILE to HEADER as the string constant NAME, and
# again whenever FILE changes.
include_guard(GLOBAL)

function(embed_text file header name)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${file}")
  file(READ "${file}" TEXT)
  set(NAME "${name}")
  file(CONFIGURE OUTPUT "${header}" @ONLY CONTENT
    "#pragma once\n\ninline constexpr char @NAME@[] = R\"text(@TEXT@)text\";\n")
endfunction()
