# Compile options shared by every target of the project.

# Float expressions must evaluate exactly in the order the code states them: the audio
# path is compared bit for bit with a plain evaluation of its formulas.
add_compile_options(-Wall -Wextra -ffp-contract=off -fno-fast-math)

# <windows.h> without the multimedia declarations (they name the engine's wave format too)
# and without the min and max macros that hide std::min and std::max; M_PI and its kin,
# which mingw's <cmath> declares only on request.
if(WIN32)
    add_compile_definitions(WIN32_LEAN_AND_MEAN NOMINMAX _USE_MATH_DEFINES)
    # Static libraries only, also where pkg-config names a library that exists both ways
    # (libpng asks for -lz, which would otherwise find zlib's import library and make the
    # module need zlib1.dll). Set here: the platform's files reset it after the toolchain's.
    set(CMAKE_FIND_LIBRARY_SUFFIXES .a)
endif()

# A fuzzing build: everything instrumented for libFuzzer's coverage feedback and checked
# by AddressSanitizer and UndefinedBehaviorSanitizer, whose reports end the run.
option(ZEPHYRA_FUZZ "Build the fuzz targets with libFuzzer (clang only)" OFF)
if(ZEPHYRA_FUZZ)
    if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang" OR NOT ZEPHYRA_SANITIZE STREQUAL "")
        message(FATAL_ERROR "ZEPHYRA_FUZZ needs clang and an empty ZEPHYRA_SANITIZE")
    endif()
    add_compile_options(-fsanitize=fuzzer-no-link,address,undefined
        -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()

if(ZEPHYRA_SANITIZE STREQUAL "address")
    # float-cast-overflow is part of "undefined" for clang but not for gcc: a host's huge
    # float converted to an integer must be caught with either.
    add_compile_options(-fsanitize=address,undefined,float-cast-overflow
                        -fno-sanitize-recover=undefined,float-cast-overflow -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined,float-cast-overflow)
elseif(ZEPHYRA_SANITIZE STREQUAL "thread")
    add_compile_options(-fsanitize=thread -fno-omit-frame-pointer)
    add_link_options(-fsanitize=thread)
elseif(NOT ZEPHYRA_SANITIZE STREQUAL "")
    message(FATAL_ERROR "ZEPHYRA_SANITIZE must be address, thread or empty")
endif()

# zephyra_library(NAME SOURCES...): one static library per subsystem. Includes name their
# folder from the project root ("effect/AZephyra.h"), so the root is the one include
# directory.
function(zephyra_library name)
    add_library(${name} STATIC ${ARGN})
    target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR})
endfunction()
