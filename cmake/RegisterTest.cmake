# How tests are registered: none without a time limit.

# How many times longer than as it is released a test may take here.
set(ANALYTICS_TEST_SLOWNESS 1)
if(ANALYTICS_SANITIZERS)
  set(ANALYTICS_TEST_SLOWNESS 5)
endif()
if(CMAKE_CROSSCOMPILING_EMULATOR)
  set(ANALYTICS_TEST_SLOWNESS 10)
endif()

# Registers a test, and what ends it if it never ends by itself: SECONDS, of a build as it is
# released, or two minutes. That is many times what a test takes, so that a busy machine ends none.
# Every test is registered here; the test time-limits notices one that is not.
function(analytics_register_test name)
  cmake_parse_arguments(PARSE_ARGV 1 ARG "" "SECONDS" "COMMAND;LABELS;ENVIRONMENT")
  if(NOT ARG_SECONDS)
    set(ARG_SECONDS 120)
  endif()
  math(EXPR limit "${ARG_SECONDS} * ${ANALYTICS_TEST_SLOWNESS}")
  add_test(NAME ${name} COMMAND ${ARG_COMMAND})
  set_tests_properties(${name} PROPERTIES
    TIMEOUT ${limit} LABELS "${ARG_LABELS}" ENVIRONMENT "${ARG_ENVIRONMENT}")
endfunction()
