# 32-bit ARM, where plain char is unsigned, and long and pointers have four bytes.
set(architecture armhf)
set(CMAKE_SYSTEM_PROCESSOR arm)
set(target arm-linux-gnueabihf)
set(emulator qemu-arm)
include(${CMAKE_CURRENT_LIST_DIR}/debian.cmake)
# A note on what an older compiler did says nothing here, where one compiler makes everything.
set(CMAKE_CXX_FLAGS_INIT -Wno-psabi)
