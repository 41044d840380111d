# The factory bank and the artwork of a cross build, made by a build of this source tree for
# the build machine (configured with ZEPHYRA_RESOURCES_ONLY, so it builds nothing else). It
# runs at every build; when nothing changed that is a quick no-op.
include(ExternalProject)
include(ArtworkFiles.cmake)

set(native_dir ${CMAKE_BINARY_DIR}/native-resources)
set(native_bank ${native_dir}/ZephyraDef.fxb)
set(ZEPHYRA_ARTWORK_DIR ${native_dir}/artwork CACHE INTERNAL "")
set(artwork_pngs "")
foreach(scale ${ZEPHYRA_ARTWORK_SCALES})
    zephyra_artwork_files(scale_pngs ${ZEPHYRA_ARTWORK_DIR} ${scale})
    list(APPEND artwork_pngs ${scale_pngs})
endforeach()

ExternalProject_Add(zephyra_native_resources
    SOURCE_DIR ${PROJECT_SOURCE_DIR}
    BINARY_DIR ${native_dir}
    CMAKE_GENERATOR ${CMAKE_GENERATOR}
    CMAKE_ARGS -DZEPHYRA_RESOURCES_ONLY=ON -DCMAKE_BUILD_TYPE=Release
    BUILD_COMMAND ${CMAKE_COMMAND} --build ${native_dir}
    INSTALL_COMMAND ""
    BUILD_ALWAYS ON
    BUILD_BYPRODUCTS ${native_bank} ${artwork_pngs})
add_custom_target(zephyra_artwork ALL DEPENDS zephyra_native_resources)

# The bank travels beside the module.
set(ZEPHYRA_FACTORY_BANK ${CMAKE_BINARY_DIR}/ZephyraDef.fxb CACHE INTERNAL "")
add_custom_command(OUTPUT ${ZEPHYRA_FACTORY_BANK}
    COMMAND ${CMAKE_COMMAND} -E copy ${native_bank} ${ZEPHYRA_FACTORY_BANK}
    DEPENDS ${native_bank}
    COMMENT "Copying the factory bank")
add_custom_target(zephyra_factory_bank ALL DEPENDS ${ZEPHYRA_FACTORY_BANK})
# Makefile generators know the native build's files only as its byproducts: order by target.
add_dependencies(zephyra_factory_bank zephyra_native_resources)
