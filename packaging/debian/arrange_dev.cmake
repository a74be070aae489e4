# Run by cpack when the files of the package are in its folder: adds the documents that Debian
# requires, and removes from the libraries what no linker needs.
set(_root "${CPACK_TEMPORARY_INSTALL_DIRECTORY}")
set(_doc "${_root}/usr/share/doc/${CPACK_PACKAGE_NAME}")

configure_file("${CPACK_VELMORA_PACKAGING_DIR}/copyright" "${_doc}/copyright" COPYONLY)
configure_file("${CPACK_VELMORA_CHANGELOG}" "${_doc}/changelog" COPYONLY)
configure_file("${CPACK_VELMORA_PACKAGING_DIR}/debian/changelog" "${_doc}/changelog.Debian"
  COPYONLY)
execute_process(COMMAND gzip -9n "${_doc}/changelog" "${_doc}/changelog.Debian"
  COMMAND_ERROR_IS_FATAL ANY)

# The package does not come from Debian's archive, so no bug there asked for it.
file(WRITE "${_root}/usr/share/lintian/overrides/${CPACK_PACKAGE_NAME}"
  "${CPACK_PACKAGE_NAME}: initial-upload-closes-no-bugs *\n")

file(GLOB_RECURSE _libraries "${_root}/usr/lib/*.a")
execute_process(
  COMMAND "${CPACK_VELMORA_STRIP}" --strip-debug --remove-section=.comment
    --remove-section=.note --enable-deterministic-archives ${_libraries}
  COMMAND_ERROR_IS_FATAL ANY)
