// Includes every header in a program that defines the names of the log levels as macros.

#define TRACE 1
#define DEBUG 1
#define INFO
#define WARN
#define ERROR 0
#define FATAL
#define NONE 0

#include <gtest/gtest.h>

#include "bridge/app_extension.h"
#include "bridge/message_callbacks.h"
#include "bridge/value_conversion.h"
#include "cefapp/cef_app_handler.h"
#include "cefapp/service_config.h"
#include "helper/application_context.h"
#include "helper/coalesced_task.h"
#include "helper/log_message.h"
#include "helper/memory_limit.h"
#include "helper/notification_listener.h"
#include "helper/notification_names.h"
#include "helper/process_kind.h"
#include "helper/renderer_thread.h"
#include "helper/zygote.h"
#include "logging/abstract_logger.h"
#include "logging/binary_lock.h"
#include "logging/file_utils.h"
#include "logging/folder_utils.h"
#include "logging/line_format.h"
#include "logging/line_writer.h"
#include "logging/log_file.h"
#include "logging/log_file_lock.h"
#include "logging/log_header.h"
#include "logging/log_level.h"
#include "logging/log_record.h"
#include "logging/log_rotation.h"
#include "logging/log_target_base.h"
#include "logging/log_target_default.h"
#include "logging/log_utils.h"
#include "logging/logger.h"
#include "logging/logging_core.h"
#include "logging/os_utils.h"
#include "logging/path_utils.h"
#include "logging/recovery_state.h"
#include "logging/retention.h"
#include "logging/rotated_copy.h"
#include "logging/secret_masking.h"
#include "logging/text_utils.h"
#include "logging/time_utils.h"
#include "platform/autorelease_scope.h"
#include "platform/begins_with.h"
#include "platform/console_user.h"
#include "platform/disk_sync.h"
#include "platform/effective_user.h"
#include "platform/file_copy.h"
#include "platform/file_descriptor.h"
#include "platform/folder_tree.h"
#include "platform/home_folder.h"
#include "platform/locale.h"
#include "platform/mutex.h"
#include "platform/notifications.h"
#include "platform/os_version.h"
#include "platform/process_memory.h"
#include "platform/program_path.h"
#include "platform/property_list.h"
#include "platform/retry.h"
#include "platform/standard_folder.h"
#include "platform/text_file.h"
#include "platform/thread_id.h"
#include "platform/xml_document.h"
#include "utils/ascii_case.h"
#include "utils/command_line_parser.h"
#include "utils/file_utils.h"
#include "utils/language_table.h"
#include "utils/localization_utils.h"
#include "utils/log_route.h"
#include "utils/os_utils.h"
#include "utils/process_utils.h"
#include "utils/string_utils.h"
#include "utils/xml_parser.h"

namespace {

TEST(LevelMacros, KeepValuesInEveryHeader) {
  EXPECT_EQ(DEBUG, 1);
  EXPECT_EQ(ERROR, 0);
  EXPECT_EQ(tarn::kDefaultLogLevel, 30);
}

}  // namespace
