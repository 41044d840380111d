# Cross-builds the Windows x86-64 edition with Debian's mingw-w64 compilers:
#   cmake -S . -B build-windows -DCMAKE_TOOLCHAIN_FILE=cmake/mingw-w64.cmake
# The -posix compilers, because the default win32 thread model has no std::thread or
# std::mutex. The C and C++ runtimes and the threads library are linked in statically, so
# the module and the programs need nothing outside Windows itself. Tests run under wine.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(mingw_triplet x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${mingw_triplet}-gcc-posix)
set(CMAKE_CXX_COMPILER ${mingw_triplet}-g++-posix)
set(CMAKE_RC_COMPILER ${mingw_triplet}-windres)

set(CMAKE_FIND_ROOT_PATH /usr/${mingw_triplet})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "-static")
set(CMAKE_MODULE_LINKER_FLAGS_INIT "-static")

# Debian installs the 64-bit loader outside PATH.
find_program(ZEPHYRA_WINE NAMES wine64 wine PATHS /usr/lib/wine NO_CMAKE_FIND_ROOT_PATH)
if(ZEPHYRA_WINE)
    set(CMAKE_CROSSCOMPILING_EMULATOR ${ZEPHYRA_WINE})
endif()
