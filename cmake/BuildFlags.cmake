# What targets of this project are compiled and linked with; users of the library get none of it.

# Warnings; made errors by CMAKE_COMPILE_WARNING_AS_ERROR in the presets.
add_library(analytics-flags INTERFACE)
target_compile_options(analytics-flags INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wold-style-cast)

if(ANALYTICS_SANITIZE)
  target_compile_options(analytics-flags INTERFACE
    -fsanitize=${ANALYTICS_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(analytics-flags INTERFACE -fsanitize=${ANALYTICS_SANITIZE})
endif()

# Libraries that are tested in several variants by programs that need no compiling for each.
add_library(analytics-library-options INTERFACE)
target_compile_options(analytics-library-options INTERFACE ${ANALYTICS_LIBRARY_OPTIONS})
target_link_options(analytics-library-options INTERFACE ${ANALYTICS_LIBRARY_OPTIONS})

# Shared libraries, ours and the host platform's: hardened, and with nothing visible that is not
# marked so. A sanitizer's runtime lives in the program, so its symbols stay undefined here.
add_library(analytics-library-flags INTERFACE)
target_link_libraries(analytics-library-flags INTERFACE analytics-flags analytics-library-options)
target_compile_options(analytics-library-flags INTERFACE
  -fvisibility=hidden -fvisibility-inlines-hidden -fstack-protector-strong
  # A unique symbol would keep the library from being unloaded.
  $<$<CXX_COMPILER_ID:GNU>:-fno-gnu-unique>)
target_link_options(analytics-library-flags INTERFACE LINKER:-z,relro,-z,now,-z,noexecstack)
if(NOT ANALYTICS_SANITIZE)
  target_link_options(analytics-library-flags INTERFACE LINKER:--no-undefined)
  target_compile_options(analytics-library-flags INTERFACE
    $<$<CONFIG:Release,RelWithDebInfo>:-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2>)
endif()
