# The platform that the library stands on, as the targets Analytics::core, Analytics::tavrel and
# Analytics::tavrel-settings: a camera SDK's where ANALYTICS_PLATFORM_ROOT names one, else the host
# platform in host/.

if(ANALYTICS_PLATFORM_ROOT)
  if(NOT EXISTS ${ANALYTICS_PLATFORM_ROOT}/include/analytics/types/Point.h)
    message(FATAL_ERROR "No platform in ${ANALYTICS_PLATFORM_ROOT}: ANALYTICS_PLATFORM_ROOT is wrong")
  elseif(ANALYTICS_BUILD_TESTS)
    message(FATAL_ERROR "The tests need the host platform, so no ANALYTICS_PLATFORM_ROOT")
  endif()
  include(cmake/CameraPlatform.cmake)
  analytics_camera_platform(${ANALYTICS_PLATFORM_ROOT})
else()
  add_subdirectory(host)
endif()
