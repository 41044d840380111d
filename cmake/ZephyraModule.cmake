# The plug-in module: one shared object that exports VSTPluginMain and nothing else.
add_library(Zephyra MODULE ${PROJECT_SOURCE_DIR}/host/VSTPluginMain.cpp
    $<TARGET_OBJECTS:zephyra_effect_entry>)
target_link_libraries(Zephyra PRIVATE zephyra_effect)
set_target_properties(Zephyra PROPERTIES
    PREFIX ""
    LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}
    LINK_DEPENDS ${PROJECT_SOURCE_DIR}/cmake/Zephyra.map)
target_link_options(Zephyra PRIVATE
    -Wl,--version-script=${PROJECT_SOURCE_DIR}/cmake/Zephyra.map
    -Wl,--exclude-libs,ALL
    -Wl,--no-undefined)
