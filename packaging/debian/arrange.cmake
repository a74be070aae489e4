# cpack runs this script in the package's folder before it packs the folder. Moves files to their
# places on Debian.
if(NOT CPACK_GENERATOR STREQUAL "DEB")
  return()
endif()
set(_root "${CPACK_TEMPORARY_INSTALL_DIRECTORY}")
set(_usr "${_root}/usr")
set(_own "${_usr}/lib/velmora-cef-helper")
set(_doc "${_usr}/share/doc/velmora-cef-helper")
set(_man "${_usr}/share/man")

function(compress _file)
  execute_process(COMMAND gzip -9n "${_file}" COMMAND_ERROR_IS_FATAL ANY)
endfunction()

file(RENAME "${_own}/share" "${_usr}/share")

# Debian has another program named logtail.
file(REMOVE "${_own}/bin/logtail")
file(MAKE_DIRECTORY "${_usr}/bin")
file(CREATE_LINK ../share/velmora-cef-helper/logtail "${_usr}/bin/velmora-logtail" SYMBOLIC)
file(READ "${_man}/man1/logtail.1" _page)
string(REGEX REPLACE "\n\\.(Nm|Dl) logtail" "\n.\\1 velmora-logtail" _page "${_page}")
string(REPLACE "\n.Dt LOGTAIL " "\n.Dt VELMORA-LOGTAIL " _page "${_page}")
file(WRITE "${_man}/man1/velmora-logtail.1" "${_page}")
file(REMOVE "${_man}/man1/logtail.1")
file(GLOB _pages "${_man}/man?/*")
foreach(_file IN LISTS _pages)
  compress("${_file}")
endforeach()

# lnav reads formats from this folder.
file(MAKE_DIRECTORY "${_root}/etc/lnav/formats/velmora_cef_helper")
file(RENAME "${_usr}/share/velmora-cef-helper/velmora_helper_log.json"
  "${_root}/etc/lnav/formats/velmora_cef_helper/velmora_helper_log.json")

# Other documents link to CHANGELOG.md; Debian requires the name changelog.
file(COPY_FILE "${_doc}/CHANGELOG.md" "${_doc}/changelog")
configure_file("${CPACK_VELMORA_DEBIAN_DIR}/changelog" "${_doc}/changelog.Debian" COPYONLY)
compress("${_doc}/changelog")
compress("${_doc}/changelog.Debian")
# The file copyright contains the license of the fetched library. The license of a distribution can
# differ.
if(NOT CPACK_VELMORA_CEF_ROOT)
  file(REMOVE "${_own}/CEF/LICENSE.txt")
endif()
file(GLOB _libraries "${_own}/CEF/*.so")
file(CHMOD ${_libraries} PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)

file(MAKE_DIRECTORY "${_usr}/share/lintian/overrides")
configure_file("${CPACK_VELMORA_DEBIAN_DIR}/lintian-overrides"
  "${_usr}/share/lintian/overrides/velmora-cef-helper" COPYONLY)
