# Installation of the library: headers, CMake package and pkg-config file.

include(CMakePackageConfigHelpers)

set(ANALYTICS_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/analytics-settings)

install(TARGETS analytics-settings EXPORT analytics-settings
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(DIRECTORY include/analytics DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(EXPORT analytics-settings NAMESPACE Analytics:: DESTINATION ${ANALYTICS_CMAKE_DIR}
  FILE analytics-settings-targets.cmake)

configure_package_config_file(cmake/analytics-settings-config.cmake.in
  analytics-settings-config.cmake INSTALL_DESTINATION ${ANALYTICS_CMAKE_DIR})
write_basic_package_version_file(analytics-settings-config-version.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES
  ${PROJECT_BINARY_DIR}/analytics-settings-config.cmake
  ${PROJECT_BINARY_DIR}/analytics-settings-config-version.cmake
  cmake/CameraPlatform.cmake
  DESTINATION ${ANALYTICS_CMAKE_DIR})

configure_file(cmake/analytics-settings.pc.in analytics-settings.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/analytics-settings.pc
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
