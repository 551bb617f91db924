# Declares the platform libraries below `root`, which holds include/ and lib/.
function(analytics_camera_platform root)
  add_library(Analytics::core SHARED IMPORTED GLOBAL)
  set_target_properties(Analytics::core PROPERTIES
    IMPORTED_LOCATION ${root}/lib/libanalytics-core.so
    IMPORTED_SONAME libanalytics-core.so
    INTERFACE_INCLUDE_DIRECTORIES ${root}/include)
endfunction()
