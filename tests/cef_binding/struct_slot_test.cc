// Tests the offset of each slot that the binding calls or fills: slot N follows the four members of
// the base and N other slots. The other tests use slots by name and would not notice swapped ones.

#include <gtest/gtest.h>
#include <cstddef>

#include "include/capi/cef_app_capi.h"
#include "include/capi/cef_client_capi.h"

namespace {

struct SlotPlace {
  const char* name;
  std::size_t slot;
  std::size_t offset;
};

#define SLOT(Struct, member, slot) \
  SlotPlace { #Struct "." #member, slot, offsetof(Struct, member) }

constexpr SlotPlace kSlots[] = {
    SLOT(cef_app_t, on_before_command_line_processing, 0),
    SLOT(cef_app_t, get_browser_process_handler, 3),
    SLOT(cef_app_t, get_render_process_handler, 4),
    SLOT(cef_browser_process_handler_t, on_context_initialized, 0),
    SLOT(cef_render_process_handler_t, on_web_kit_initialized, 1),
    SLOT(cef_render_process_handler_t, on_before_navigation, 5),
    SLOT(cef_render_process_handler_t, on_context_released, 7),
    SLOT(cef_render_process_handler_t, on_process_message_received, 10),
    SLOT(cef_v8handler_t, execute, 0),
    SLOT(cef_v8context_t, get_browser, 2),
    SLOT(cef_v8context_t, enter, 5),
    SLOT(cef_v8context_t, exit, 6),
    SLOT(cef_v8context_t, is_same, 7),
    SLOT(cef_v8value_t, is_bool, 3),
    SLOT(cef_v8value_t, is_int, 4),
    SLOT(cef_v8value_t, is_double, 6),
    SLOT(cef_v8value_t, is_string, 8),
    SLOT(cef_v8value_t, is_array, 10),
    SLOT(cef_v8value_t, is_function, 11),
    SLOT(cef_v8value_t, get_bool_value, 13),
    SLOT(cef_v8value_t, get_int_value, 14),
    SLOT(cef_v8value_t, get_double_value, 16),
    SLOT(cef_v8value_t, get_string_value, 18),
    SLOT(cef_v8value_t, get_value_bykey, 29),
    SLOT(cef_v8value_t, get_value_byindex, 30),
    SLOT(cef_v8value_t, set_value_bykey, 31),
    SLOT(cef_v8value_t, set_value_byindex, 32),
    SLOT(cef_v8value_t, get_array_length, 39),
    SLOT(cef_v8value_t, execute_function, 42),
    SLOT(cef_process_message_t, get_name, 3),
    SLOT(cef_process_message_t, get_argument_list, 4),
    SLOT(cef_value_t, set_list, 21),
    SLOT(cef_list_value_t, set_size, 6),
    SLOT(cef_list_value_t, get_size, 7),
    SLOT(cef_list_value_t, get_type, 10),
    SLOT(cef_list_value_t, get_value, 11),
    SLOT(cef_list_value_t, get_bool, 12),
    SLOT(cef_list_value_t, get_int, 13),
    SLOT(cef_list_value_t, get_double, 14),
    SLOT(cef_list_value_t, get_string, 15),
    SLOT(cef_list_value_t, get_list, 18),
    SLOT(cef_list_value_t, set_value, 19),
    SLOT(cef_list_value_t, set_null, 20),
    SLOT(cef_list_value_t, set_bool, 21),
    SLOT(cef_list_value_t, set_int, 22),
    SLOT(cef_list_value_t, set_double, 23),
    SLOT(cef_list_value_t, set_string, 24),
    SLOT(cef_list_value_t, set_binary, 25),
    SLOT(cef_list_value_t, set_dictionary, 26),
    SLOT(cef_list_value_t, set_list, 27),
    SLOT(cef_dictionary_value_t, set_int, 23),
    SLOT(cef_command_line_t, has_switch, 11),
    SLOT(cef_command_line_t, get_switch_value, 12),
    SLOT(cef_command_line_t, append_switch, 14),
    SLOT(cef_command_line_t, append_switch_with_value, 15),
    SLOT(cef_cookie_manager_t, set_supported_schemes, 0),
    SLOT(cef_task_t, execute, 0),
    SLOT(cef_browser_t, get_host, 0),
    SLOT(cef_browser_t, go_back, 2),
    SLOT(cef_browser_t, go_forward, 4),
    SLOT(cef_browser_t, reload, 6),
    SLOT(cef_browser_t, get_identifier, 9),
    SLOT(cef_browser_t, is_popup, 11),
    SLOT(cef_browser_t, get_main_frame, 13),
    SLOT(cef_browser_t, send_process_message, 20),
    SLOT(cef_browser_host_t, close_browser, 1),
    SLOT(cef_browser_host_t, is_window_rendering_disabled, 26),
    SLOT(cef_browser_host_t, was_resized, 27),
    SLOT(cef_browser_host_t, invalidate, 30),
    SLOT(cef_frame_t, load_url, 12),
    SLOT(cef_frame_t, is_main, 15),
    SLOT(cef_frame_t, get_url, 20),
    SLOT(cef_client_t, get_display_handler, 2),
    SLOT(cef_client_t, get_life_span_handler, 10),
    SLOT(cef_client_t, get_load_handler, 11),
    SLOT(cef_client_t, get_render_handler, 12),
    SLOT(cef_client_t, get_request_handler, 13),
    SLOT(cef_client_t, on_process_message_received, 14),
    SLOT(cef_life_span_handler_t, on_before_popup, 0),
    SLOT(cef_life_span_handler_t, on_after_created, 1),
    SLOT(cef_life_span_handler_t, on_before_close, 3),
    SLOT(cef_load_handler_t, on_load_end, 2),
    SLOT(cef_load_handler_t, on_load_error, 3),
    SLOT(cef_render_handler_t, get_view_rect, 1),
    SLOT(cef_render_handler_t, on_paint, 6),
    SLOT(cef_request_handler_t, on_render_process_terminated, 15),
    SLOT(cef_display_handler_t, on_console_message, 6),
};

TEST(StructSlotTest, SlotsHaveExpectedOffsets) {
  for (const SlotPlace& place : kSlots) {
    EXPECT_EQ(place.offset, 32 + 8 * place.slot) << place.name;
  }
}

TEST(StructSlotTest, BaseHasExpectedLayout) {
  EXPECT_EQ(sizeof(cef_base_ref_counted_t), 32u);
  EXPECT_EQ(offsetof(cef_base_ref_counted_t, size), 0u);
  EXPECT_EQ(offsetof(cef_base_ref_counted_t, add_ref), 8u);
  EXPECT_EQ(offsetof(cef_base_ref_counted_t, release), 16u);
  EXPECT_EQ(offsetof(cef_base_ref_counted_t, has_one_ref), 24u);
}

}  // namespace
