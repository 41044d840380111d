# The plug-in module: one shared object that exports VSTPluginMain and nothing else. The
# effect comes with its editor.
add_library(Zephyra MODULE ${PROJECT_SOURCE_DIR}/host/VSTPluginMain.cpp
    $<TARGET_OBJECTS:zephyra_editor_entry>)
target_link_libraries(Zephyra PRIVATE zephyra_editor)
set_target_properties(Zephyra PROPERTIES
    PREFIX ""
    LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}
    LINK_DEPENDS ${PROJECT_SOURCE_DIR}/cmake/Zephyra.map)
target_link_options(Zephyra PRIVATE
    -Wl,--version-script=${PROJECT_SOURCE_DIR}/cmake/Zephyra.map
    -Wl,--exclude-libs,ALL
    -Wl,--no-undefined)

# The factory bank is read from beside the module, so the two travel together.
if(TARGET zephyra_factory_bank)
    add_dependencies(Zephyra zephyra_factory_bank)
endif()
set(ZEPHYRA_VST_DIR "$ENV{HOME}/.vst" CACHE PATH "Folder the plug-in is installed into")
install(TARGETS Zephyra LIBRARY DESTINATION ${ZEPHYRA_VST_DIR} COMPONENT plugin)
install(FILES ${ZEPHYRA_FACTORY_BANK} DESTINATION ${ZEPHYRA_VST_DIR} COMPONENT plugin)
