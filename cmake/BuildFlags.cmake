# What targets of this project are compiled and linked with; users of the library get none of it.

# Warnings; made errors by CMAKE_COMPILE_WARNING_AS_ERROR in the presets.
add_library(analytics-flags INTERFACE)
target_compile_options(analytics-flags INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wold-style-cast
  $<$<CXX_COMPILER_ID:Clang>:-Wreserved-identifier>)

# For a source that has to declare names of the compiler's runtime.
set(ANALYTICS_RESERVED_NAMES $<$<CXX_COMPILER_ID:Clang>:-Wno-reserved-identifier>)

# The sanitizers of this build, those that come with the compiler's flags included.
string(REGEX MATCHALL "-fsanitize=[^ ]+" ANALYTICS_SANITIZERS "${CMAKE_CXX_FLAGS}")
if(ANALYTICS_SANITIZE)
  list(APPEND ANALYTICS_SANITIZERS -fsanitize=${ANALYTICS_SANITIZE})
  target_compile_options(analytics-flags INTERFACE
    -fsanitize=${ANALYTICS_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(analytics-flags INTERFACE -fsanitize=${ANALYTICS_SANITIZE})
endif()

# Libraries that are tested in several variants by programs that need no compiling for each.
add_library(analytics-library-options INTERFACE)
target_compile_options(analytics-library-options INTERFACE ${ANALYTICS_LIBRARY_OPTIONS})
target_link_options(analytics-library-options INTERFACE ${ANALYTICS_LIBRARY_OPTIONS})

# What is installed is hardened, never less than the toolchain does it by itself. Sanitizers want
# the C library's functions as they are.
add_library(analytics-hardening INTERFACE)
target_link_options(analytics-hardening INTERFACE LINKER:-z,relro,-z,now,-z,noexecstack)
if(NOT CMAKE_CXX_FLAGS MATCHES "-fstack-protector-all")
  target_compile_options(analytics-hardening INTERFACE -fstack-protector-strong)
endif()
if(NOT ANALYTICS_SANITIZERS)
  target_compile_options(analytics-hardening INTERFACE
    "SHELL:-include \"${PROJECT_SOURCE_DIR}/cmake/Fortify.h\"")
endif()

# The library: nothing is visible that is not marked so. A sanitizer's runtime lives in the program,
# so its symbols stay undefined here.
add_library(analytics-library-flags INTERFACE)
target_link_libraries(analytics-library-flags INTERFACE
  analytics-flags analytics-hardening analytics-library-options)
target_compile_options(analytics-library-flags INTERFACE
  -fvisibility=hidden -fvisibility-inlines-hidden
  # A unique symbol would keep the library from being unloaded.
  $<$<CXX_COMPILER_ID:GNU>:-fno-gnu-unique>)
if(NOT ANALYTICS_SANITIZERS)
  target_link_options(analytics-library-flags INTERFACE LINKER:--no-undefined)
endif()
