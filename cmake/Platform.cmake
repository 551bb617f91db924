# The platform that the library stands on, as the targets Analytics::core, Analytics::tavrel and
# Analytics::tavrel-settings: a camera SDK's where ANALYTICS_PLATFORM_ROOT names one, else the host
# platform in host/.

if(ANALYTICS_PLATFORM_ROOT)
  include(cmake/CameraPlatform.cmake)
  analytics_camera_platform(${ANALYTICS_PLATFORM_ROOT})
else()
  add_subdirectory(host)
endif()
