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

# Cairo, Pango and what they need, built as static libraries by windows/deps/build.sh
# into its cache (/var/cache/zephyra-windows-deps unless ZEPHYRA_WINDOWS_DEPS names the
# sysroot). pkg-config then looks there only (not at the build machine's own .pc files)
# and answers for static linking; the .pc files carry the defines and system libraries
# static users need (CAIRO_WIN32_STATIC_BUILD, gdi32, ...).
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES ZEPHYRA_WINDOWS_DEPS)
if(NOT ZEPHYRA_WINDOWS_DEPS)
    execute_process(
        COMMAND ${CMAKE_CURRENT_LIST_DIR}/../windows/deps/build.sh --find /var/cache/zephyra-windows-deps
        OUTPUT_VARIABLE found_deps OUTPUT_STRIP_TRAILING_WHITESPACE
        ERROR_VARIABLE missing_deps ERROR_STRIP_TRAILING_WHITESPACE
        RESULT_VARIABLE deps_result)
    if(NOT deps_result EQUAL 0)
        message(FATAL_ERROR "${missing_deps}")
    endif()
    set(ZEPHYRA_WINDOWS_DEPS ${found_deps} CACHE PATH "Cairo and Pango for Windows")
endif()
if(NOT EXISTS ${ZEPHYRA_WINDOWS_DEPS}/lib/pkgconfig/pangocairo.pc)
    message(FATAL_ERROR "ZEPHYRA_WINDOWS_DEPS=${ZEPHYRA_WINDOWS_DEPS} holds no pangocairo.pc")
endif()
set(ENV{PKG_CONFIG_LIBDIR} ${ZEPHYRA_WINDOWS_DEPS}/lib/pkgconfig)
set(ENV{PKG_CONFIG_PATH} "")
set(PKG_CONFIG_ARGN --static)
# FindPkgConfig looks the libraries up with find_library, which searches only the roots.
list(APPEND CMAKE_FIND_ROOT_PATH ${ZEPHYRA_WINDOWS_DEPS})
