# Build-time resources: the factory bank shipped beside the module.
add_executable(make_factory_bank FactoryBankMain.cpp)
target_link_libraries(make_factory_bank PRIVATE zephyra_effect)

set(ZEPHYRA_FACTORY_BANK ${CMAKE_BINARY_DIR}/ZephyraDef.fxb CACHE INTERNAL "")
add_custom_command(OUTPUT ${ZEPHYRA_FACTORY_BANK}
    COMMAND make_factory_bank ${ZEPHYRA_FACTORY_BANK}
    DEPENDS make_factory_bank
    COMMENT "Writing the factory bank")
add_custom_target(zephyra_factory_bank ALL DEPENDS ${ZEPHYRA_FACTORY_BANK})

# Build-time resources: the panel's artwork, drawn with Cairo into bmpNNNNN.png files.
find_package(PkgConfig REQUIRED)
pkg_check_modules(ARTWORK_LIBS REQUIRED IMPORTED_TARGET cairo pangocairo)
add_executable(make_artwork
    artwork/ArtworkTable.cpp
    artwork/Background.cpp
    artwork/Buttons.cpp
    artwork/Canvas.cpp
    artwork/KnobStrip.cpp
    artwork/MakeArtworkMain.cpp
    artwork/Meter.cpp
    artwork/Slider.cpp
    artwork/Switches.cpp)
target_link_libraries(make_artwork PRIVATE PkgConfig::ARTWORK_LIBS)
# The panel's geometry is the editor's; the artwork is drawn to fit it.
target_include_directories(make_artwork PRIVATE ${PROJECT_SOURCE_DIR})

include(ArtworkFiles.cmake)
set(ZEPHYRA_ARTWORK_DIR ${CMAKE_BINARY_DIR}/artwork CACHE INTERNAL "")
set(artwork_pngs "")
foreach(scale ${ZEPHYRA_ARTWORK_SCALES})
    zephyra_artwork_files(scale_pngs ${ZEPHYRA_ARTWORK_DIR} ${scale})
    add_custom_command(OUTPUT ${scale_pngs}
        COMMAND ${CMAKE_COMMAND} -E make_directory ${ZEPHYRA_ARTWORK_DIR}
        # A build tool, not part of the plug-in: in a sanitizer build the font libraries it
        # draws with would report their own caches and start-up thread and stop the build.
        COMMAND ${CMAKE_COMMAND} -E env ASAN_OPTIONS=detect_leaks=0 TSAN_OPTIONS=report_bugs=0
                $<TARGET_FILE:make_artwork> ${ZEPHYRA_ARTWORK_DIR} ${scale}
        DEPENDS make_artwork
        COMMENT "Drawing the panel's artwork at scale ${scale}"
        VERBATIM)
    list(APPEND artwork_pngs ${scale_pngs})
endforeach()
add_custom_target(zephyra_artwork ALL DEPENDS ${artwork_pngs})

