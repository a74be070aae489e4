# Makes PROGRAM load CEF's framework from the folder CEF next to the program's folder, whatever path
# was linked: cmake -DPROGRAM= -DOTOOL= -DINSTALL_NAME_TOOL= -P framework_path.cmake
set(_wanted
  "@executable_path/../CEF/Chromium Embedded Framework.framework/Chromium Embedded Framework")

execute_process(COMMAND "${OTOOL}" -L "${PROGRAM}" OUTPUT_VARIABLE _libraries
  COMMAND_ERROR_IS_FATAL ANY)
if(NOT _libraries MATCHES "\n[ \t]+([^\n]*/Chromium Embedded Framework) \\(")
  message(FATAL_ERROR "${PROGRAM} does not link the Chromium Embedded Framework")
endif()
if(NOT CMAKE_MATCH_1 STREQUAL _wanted)
  execute_process(COMMAND "${INSTALL_NAME_TOOL}"
    -change "${CMAKE_MATCH_1}" "${_wanted}" "${PROGRAM}" COMMAND_ERROR_IS_FATAL ANY)
endif()
