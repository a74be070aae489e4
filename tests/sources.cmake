# The tests that run on more than Linux's implementation of platform/. Paths are relative to tests/.

# On macOS' implementation as well: with GNUstep's Foundation, and as programs for macOS.
set(PLATFORM_TESTS
  platform/binary_property_list_test.cc
  platform/file_copy_test.cc
  platform/folder_tree_test.cc
  platform/home_folder_test.cc
  platform/text_file_test.cc
)
# With GNUstep's Foundation.
set(FOUNDATION_TESTS
  platform/autorelease_scope_test.cc
  platform/effective_user_test.cc
  platform/notification_processes_test.cc
  platform/outside_xml_test.cc
  platform/property_list_test.cc
  platform/xml_acceptance_test.cc
  platform/xml_document_test.cc
)
# As programs for macOS.
set(SYSTEM_TESTS
  platform/disk_sync_test.cc
  platform/process_memory_test.cc
  platform/thread_id_test.cc
)
set(LOGGING_TESTS
  logging/binary_lock_test.cc
  logging/file_utils_test.cc
  logging/folder_utils_test.cc
  logging/generated_folder_test.cc
  logging/line_format_test.cc
  logging/line_writer_test.cc
  logging/log_file_lock_test.cc
  logging/log_file_test.cc
  logging/log_target_base_test.cc
  logging/log_target_default_test.cc
  logging/log_target_file_test.cc
  logging/log_target_threads_test.cc
  logging/logger_test.cc
  logging/logging_core_test.cc
  logging/os_utils_test.cc
  logging/path_utils_test.cc
  logging/plain_masking.cc
  logging/recovery_state_test.cc
  logging/retention_test.cc
  logging/rotated_copy_test.cc
  logging/secret_masking_test.cc
  logging/text_utils_test.cc
)
set(LOGGING_SEGMENT_TESTS
  logging/due_header_test.cc
  logging/fixed_clock.cc
  logging/interrupted_rotation_test.cc
  logging/log_rotation_test.cc
  logging/log_target_segments_test.cc
)
set(UTILS_TESTS
  utils/command_line_parser_test.cc
  utils/language_table_test.cc
  utils/localization_utils_test.cc
  utils/log_route_test.cc
  utils/os_utils_test.cc
  utils/process_utils_test.cc
  utils/string_utils_test.cc
  utils/xml_parser_test.cc
)
# Code that they share. Each system adds its system_facilities.cc.
set(TEST_SUPPORT
  support/addresses.cc
  support/child_process.cc
  support/lock_objects.cc
  support/process_pool.cc
  support/temporary_folder.cc
  support/test_home.cc
)
foreach(_list PLATFORM_TESTS FOUNDATION_TESTS SYSTEM_TESTS LOGGING_TESTS LOGGING_SEGMENT_TESTS
    UTILS_TESTS TEST_SUPPORT)
  list(TRANSFORM ${_list} PREPEND "${CMAKE_CURRENT_LIST_DIR}/")
endforeach()
