# A machine with the most significant byte first, and with an unsigned plain char.
set(architecture s390x)
set(CMAKE_SYSTEM_PROCESSOR s390x)
set(target s390x-linux-gnu)
set(emulator qemu-s390x)
include(${CMAKE_CURRENT_LIST_DIR}/debian.cmake)
