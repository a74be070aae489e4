find_package(PkgConfig REQUIRED)
pkg_check_modules(LIBSYSTEMD REQUIRED IMPORTED_TARGET libsystemd)
pkg_check_modules(LIBXML2 REQUIRED IMPORTED_TARGET libxml-2.0)
pkg_check_modules(LIBPLIST REQUIRED IMPORTED_TARGET libplist-2.0)

target_sources(platform PRIVATE
  ${LINUX_SYSTEM}
  linux/autorelease_scope.cc
  linux/file_copy.cc
  linux/folder_tree.cc
  linux/home_folder.cc
  linux/locale.cc
  linux/notification_observer.cc
  linux/notification_post.cc
  linux/os_version.cc
  linux/program_path.cc
  linux/property_list.cc
  linux/session_bus.cc
  linux/suite_signal.cc
  linux/text_encoding.cc
  linux/xml_document.cc
)
target_link_libraries(platform PRIVATE
  PkgConfig::LIBPLIST PkgConfig::LIBSYSTEMD PkgConfig::LIBXML2)
