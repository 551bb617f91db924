# What is the same for all that is installed, the host platform included.

# Gives a library the soname of its major version where that is asked for.
function(analytics_version_soname library)
  if(ANALYTICS_VERSIONED_SONAME)
    set_target_properties(${library} PROPERTIES
      VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR})
  endif()
endfunction()

# The way from installed programs to the installed libraries; within the prefix it is relative, so
# that the installed tree can be moved.
set(ANALYTICS_WAY_TO_LIBRARIES ${CMAKE_INSTALL_LIBDIR})
if(NOT IS_ABSOLUTE ${CMAKE_INSTALL_LIBDIR})
  file(RELATIVE_PATH ANALYTICS_WAY_TO_LIBRARIES
    ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR})
  string(PREPEND ANALYTICS_WAY_TO_LIBRARIES $ORIGIN/)
endif()

# Has a library or program find the libraries that are installed with it. Only where the host
# platform is among them: on a camera all of them lie where the loader looks by itself.
function(analytics_find_installed_libraries target)
  if(NOT ANALYTICS_INSTALL_HOST)
    return()
  endif()
  set(way $ORIGIN)
  get_target_property(type ${target} TYPE)
  if(type STREQUAL EXECUTABLE)
    set(way ${ANALYTICS_WAY_TO_LIBRARIES})
  endif()
  set_target_properties(${target} PROPERTIES INSTALL_RPATH ${way})
endfunction()
