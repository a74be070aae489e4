# cpack runs this script in the package's folder before it packs the folder. Adds the documents that
# Debian requires, and removes sections that linkers do not use from the libraries.
set(_root "${CPACK_TEMPORARY_INSTALL_DIRECTORY}")
set(_doc "${_root}/usr/share/doc/${CPACK_PACKAGE_NAME}")

configure_file("${CPACK_VELMORA_PACKAGING_DIR}/copyright" "${_doc}/copyright" COPYONLY)
configure_file("${CPACK_VELMORA_CHANGELOG}" "${_doc}/changelog" COPYONLY)
configure_file("${CPACK_VELMORA_PACKAGING_DIR}/debian/changelog" "${_doc}/changelog.Debian"
  COPYONLY)
execute_process(COMMAND gzip -9n "${_doc}/changelog" "${_doc}/changelog.Debian"
  COMMAND_ERROR_IS_FATAL ANY)

# The package is not from Debian's archive, so no bug report requested it.
file(WRITE "${_root}/usr/share/lintian/overrides/${CPACK_PACKAGE_NAME}"
  "${CPACK_PACKAGE_NAME}: initial-upload-closes-no-bugs *\n")

file(GLOB_RECURSE _libraries "${_root}/usr/lib/*.a")
execute_process(
  COMMAND "${CPACK_VELMORA_STRIP}" --strip-debug --remove-section=.comment
    --remove-section=.note --enable-deterministic-archives ${_libraries}
  COMMAND_ERROR_IS_FATAL ANY)
