# Records the targets that a test requires, so that tools/test can build only these. CTest knows the
# tests of a GoogleTest program only after the program is built; tools/lib/targets_of_tests finds
# their names in the program's sources.
include(GoogleTest)

# discover_tests(TARGET PREFIX TIMEOUT): adds the tests of a program, as PREFIX.Suite.Name.
function(discover_tests target prefix timeout)
  gtest_discover_tests(${target} TEST_PREFIX ${prefix}. PROPERTIES TIMEOUT ${timeout})
  set_property(GLOBAL APPEND_STRING PROPERTY TEST_TARGETS
    "${target}|${prefix}.|${CMAKE_CURRENT_SOURCE_DIR}|$<TARGET_PROPERTY:${target},SOURCES>\n")
endfunction()

# test_needs(TEST TARGET...): records the targets whose files a test script uses.
function(test_needs test)
  set_property(GLOBAL APPEND_STRING PROPERTY TEST_TARGETS "${ARGN}|${test}\n")
endfunction()

# write_test_targets(): writes the records. Call it after all tests are declared.
function(write_test_targets)
  get_property(_lines GLOBAL PROPERTY TEST_TARGETS)
  file(GENERATE OUTPUT "${PROJECT_BINARY_DIR}/test_targets.txt" CONTENT "${_lines}")
endfunction()
