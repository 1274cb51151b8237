# Cross-builds for 64-bit Windows with the POSIX-thread flavour of MinGW-w64 that Debian packages as
# g++-mingw-w64-x86-64-posix.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR AMD64)

set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Programs must run on a bare Windows, so every runtime library is linked into them, that of the
# stack protector too. The time of the build is left out, so that the same source gives the same
# program. --tsaware says that a program keeps nothing that users of a terminal server would share.
set(CMAKE_EXE_LINKER_FLAGS_INIT
    "-static -fstack-protector-strong -Wl,--no-insert-timestamp -Wl,--tsaware")

# Tests run under Wine. They are listed when ctest is called, so that building needs no Wine.
set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/../hands/wine.sh ${CMAKE_BINARY_DIR}/wine/unit_tests wine)
set(CMAKE_GTEST_DISCOVER_TESTS_DISCOVERY_MODE PRE_TEST)
