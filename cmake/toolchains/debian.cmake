# What the toolchain files beside this one share: Debian's cross compiler for `target`, the
# libraries that scripts/setup --cross unpacks for `architecture`, and programs run by `emulator`.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_C_COMPILER ${target}-gcc)
set(CMAKE_CXX_COMPILER ${target}-g++)
set(CMAKE_LIBRARY_ARCHITECTURE ${target})

get_filename_component(CMAKE_SYSROOT
  ${CMAKE_CURRENT_LIST_DIR}/../../build/sysroots/${architecture} ABSOLUTE)
if(NOT EXISTS ${CMAKE_SYSROOT})
  message(FATAL_ERROR "${CMAKE_SYSROOT} is missing; scripts/setup --cross makes it")
endif()
set(CMAKE_CROSSCOMPILING_EMULATOR ${emulator} -L ${CMAKE_SYSROOT})

# Programs such as python3 are this machine's; all else is the target's.
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(ENV{PKG_CONFIG_LIBDIR}
  ${CMAKE_SYSROOT}/usr/lib/${target}/pkgconfig:${CMAKE_SYSROOT}/usr/share/pkgconfig)
set(ENV{PKG_CONFIG_SYSROOT_DIR} ${CMAKE_SYSROOT})
