# Installation of the library: headers, CMake package and pkg-config file.

include(CMakePackageConfigHelpers)

set(ANALYTICS_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/analytics-settings)

install(TARGETS analytics-settings EXPORT analytics-settings
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
    COMPONENT runtime NAMELINK_COMPONENT development)
install(DIRECTORY include/analytics ${PROJECT_BINARY_DIR}/include/analytics
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT development FILES_MATCHING PATTERN *.h)
install(EXPORT analytics-settings NAMESPACE Analytics:: DESTINATION ${ANALYTICS_CMAKE_DIR}
  FILE analytics-settings-targets.cmake COMPONENT development)
if(ANALYTICS_INSTALL_HOST)
  install(EXPORT analytics-host NAMESPACE Analytics:: DESTINATION ${ANALYTICS_CMAKE_DIR}
    FILE analytics-host-targets.cmake COMPONENT development)
endif()

configure_package_config_file(cmake/analytics-settings-config.cmake.in
  analytics-settings-config.cmake INSTALL_DESTINATION ${ANALYTICS_CMAKE_DIR})
write_basic_package_version_file(analytics-settings-config-version.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES
  ${PROJECT_BINARY_DIR}/analytics-settings-config.cmake
  ${PROJECT_BINARY_DIR}/analytics-settings-config-version.cmake
  cmake/CameraPlatform.cmake
  DESTINATION ${ANALYTICS_CMAKE_DIR} COMPONENT development)

# Folders within the prefix follow it when the tree is moved; others are absolute.
cmake_path(APPEND ANALYTICS_PC_LIBDIR "\${prefix}" ${CMAKE_INSTALL_LIBDIR})
cmake_path(APPEND ANALYTICS_PC_INCLUDEDIR "\${prefix}" ${CMAKE_INSTALL_INCLUDEDIR})
configure_file(cmake/analytics-settings.pc.in analytics-settings.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/analytics-settings.pc
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)

# Every copy is to come with its licence.
install(FILES LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT documentation)
