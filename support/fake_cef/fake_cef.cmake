# A fake of libcef.so in plain C++. Test programs with the fake do not load Chromium, so that they
# also run under the sanitizers.
include_guard(GLOBAL)

# An object library and not an archive, because it must precede the library that cef_binding names.
add_library(fake_cef OBJECT
  "${CMAKE_CURRENT_LIST_DIR}/fake_browser.cc"
  "${CMAKE_CURRENT_LIST_DIR}/fake_cef_test.cc"
  "${CMAKE_CURRENT_LIST_DIR}/fake_json.cc"
  "${CMAKE_CURRENT_LIST_DIR}/fake_library.cc"
  "${CMAKE_CURRENT_LIST_DIR}/fake_object.cc"
  "${CMAKE_CURRENT_LIST_DIR}/fake_strings.cc"
  "${CMAKE_CURRENT_LIST_DIR}/fake_v8.cc"
  "${CMAKE_CURRENT_LIST_DIR}/fake_values.cc"
)
target_include_directories(fake_cef PUBLIC "${PROJECT_SOURCE_DIR}")
target_link_libraries(fake_cef PUBLIC cef_binding GTest::gmock_main PRIVATE project_options)

# add_fake_cef_tests(TARGET SOURCES...): adds a test program with the fake. The names of its tests
# begin with TARGET without _tests.
function(add_fake_cef_tests target)
  add_executable(${target} ${ARGN})
  # Drops libcef.so, because the fake defines all of its symbols.
  target_link_options(${target} PRIVATE -Wl,--as-needed)
  target_link_libraries(${target} PRIVATE fake_cef project_options)
  string(REGEX REPLACE "_tests$" "" prefix "${target}")
  # A function that the fake lacks would bring the library back.
  add_test(NAME ${prefix}.LoadsNoChromium COMMAND readelf -d "$<TARGET_FILE:${target}>")
  test_needs(${prefix}.LoadsNoChromium ${target})
  set_tests_properties(${prefix}.LoadsNoChromium PROPERTIES FAIL_REGULAR_EXPRESSION "libcef")
  discover_tests(${target} ${prefix} 120)
endfunction()
