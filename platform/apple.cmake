# Sources that need Foundation.
set(_foundation
  apple/autorelease_scope.mm
  apple/foundation_text.mm
  apple/home_folder.mm
  apple/locale.mm
  apple/notification_observer.mm
  apple/notification_post.mm
  apple/os_version.mm
  apple/program_path.mm
  apple/property_list.mm
  apple/text_encoding.mm
  apple/xml_document.mm
)
# Sources that need macOS' kernel or other frameworks.
set(_system
  apple/console_user.cc
  apple/disk_sync.cc
  apple/gestalt_version.cc
  apple/process_memory.cc
  apple/standard_folder.cc
  apple/thread_id.cc
)
target_sources(platform PRIVATE
  apple/file_copy.cc
  apple/folder_tree.cc
)

if(PLATFORM STREQUAL "darwin")
  target_sources(platform PRIVATE ${_system})
  return()
endif()

# Use the same compiler for both languages.
set(CMAKE_OBJCXX_COMPILER "${CMAKE_CXX_COMPILER}" CACHE FILEPATH "The Objective-C++ compiler")
enable_language(OBJCXX)
set_target_properties(platform PROPERTIES OBJCXX_STANDARD 17 OBJCXX_STANDARD_REQUIRED ON)
target_sources(platform PRIVATE ${_foundation})

if(PLATFORM STREQUAL "apple")
  target_sources(platform PRIVATE ${_system})
  target_link_libraries(platform PRIVATE
    "-framework Foundation" "-framework CoreServices" "-framework SystemConfiguration")
else()
  # GNUstep's Foundation runs on Linux and needs its system calls. tests/gnustep adds the rest.
  include(GnustepBase)
  find_package(PkgConfig REQUIRED)
  pkg_check_modules(LIBSYSTEMD REQUIRED IMPORTED_TARGET libsystemd)
  target_sources(platform PRIVATE ${LINUX_SYSTEM})
  target_link_libraries(platform PRIVATE gnustep_base PkgConfig::LIBSYSTEMD)
endif()
