# Declares the target `name` for a platform library below `root`, which holds include/ and lib/.
function(analytics_platform_library root name file)
  add_library(${name} SHARED IMPORTED GLOBAL)
  set_target_properties(${name} PROPERTIES
    IMPORTED_LOCATION ${root}/lib/${file}
    IMPORTED_SONAME ${file}
    INTERFACE_INCLUDE_DIRECTORIES ${root}/include)
endfunction()

# Declares all platform libraries below `root`.
function(analytics_camera_platform root)
  analytics_platform_library(${root} Analytics::core libanalytics-core.so)
  analytics_platform_library(${root} Analytics::tavrel libtavrel.so)
  analytics_platform_library(${root} Analytics::tavrel-settings libtavrel-settings.so)
  set_target_properties(Analytics::tavrel-settings PROPERTIES
    INTERFACE_LINK_LIBRARIES Analytics::tavrel)
endfunction()
