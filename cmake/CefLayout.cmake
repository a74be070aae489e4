# Places the folder CEF next to bin, as links in the build tree and as copies in the installation.
# Chromium requires three of the files in the folder of the running executable.
set(CEF_FILES_NEXT_TO_EXECUTABLE icudtl.dat natives_blob.bin snapshot_blob.bin)

file(MAKE_DIRECTORY "${CMAKE_CURRENT_BINARY_DIR}/CEF" "${CMAKE_RUNTIME_OUTPUT_DIRECTORY}")
foreach(_file IN LISTS CEF_FILES)
  get_filename_component(_name "${_file}" NAME)
  file(CREATE_LINK "${_file}" "${CMAKE_CURRENT_BINARY_DIR}/CEF/${_name}" SYMBOLIC)
  if(IS_DIRECTORY "${_file}")
    install(DIRECTORY "${_file}" DESTINATION CEF USE_SOURCE_PERMISSIONS)
  elseif(_name STREQUAL "chrome-sandbox")
    # Chromium's sandbox requires a program that runs as root.
    install(PROGRAMS "${_file}" DESTINATION CEF PERMISSIONS SETUID
      OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
  elseif(_name MATCHES "\\.so$")
    install(PROGRAMS "${_file}" DESTINATION CEF)
  else()
    install(FILES "${_file}" DESTINATION CEF)
  endif()
endforeach()

if(APPLE)
  return()  # the framework contains these files
endif()
foreach(_name IN LISTS CEF_FILES_NEXT_TO_EXECUTABLE)
  file(CREATE_LINK "../CEF/${_name}" "${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/${_name}" SYMBOLIC)
  install(FILES "${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/${_name}" DESTINATION bin)
endforeach()
