# HexHelper on macOS: a program without a bundle, with its own Info.plist, next to the framework's
# folder.
configure_file("${CMAKE_CURRENT_LIST_DIR}/Info.plist.in" "${CMAKE_CURRENT_BINARY_DIR}/Info.plist"
  @ONLY)
# The program contains the property list, because the surrounding bundle belongs to the suite.
target_link_options(HexHelper PRIVATE
  "LINKER:-sectcreate,__TEXT,__info_plist,${CMAKE_CURRENT_BINARY_DIR}/Info.plist")
set_property(TARGET HexHelper APPEND PROPERTY LINK_DEPENDS "${CMAKE_CURRENT_BINARY_DIR}/Info.plist")

# The framework's path differs between branches of CEF; the path in the program is always the same.
find_program(OTOOL otool REQUIRED)
add_custom_command(TARGET HexHelper POST_BUILD
  COMMAND "${CMAKE_COMMAND}" "-DPROGRAM=$<TARGET_FILE:HexHelper>" "-DOTOOL=${OTOOL}"
    "-DINSTALL_NAME_TOOL=${CMAKE_INSTALL_NAME_TOOL}"
    -P "${CMAKE_CURRENT_LIST_DIR}/framework_path.cmake"
  VERBATIM)

install(FILES "${CMAKE_CURRENT_LIST_DIR}/HexHelper.entitlements"
  DESTINATION "${CMAKE_INSTALL_DATADIR}/velmora-cef-helper")
