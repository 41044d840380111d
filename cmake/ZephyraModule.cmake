# The plug-in module: one shared object that exports VSTPluginMain and nothing else. The
# effect comes with its editor.
add_library(Zephyra MODULE ${PROJECT_SOURCE_DIR}/host/VSTPluginMain.cpp
    $<TARGET_OBJECTS:zephyra_editor_entry>)
target_link_libraries(Zephyra PRIVATE zephyra_editor)
set_target_properties(Zephyra PROPERTIES PREFIX "" LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR})
if(WIN32)
    # Zephyra.dll: the export list is a module definition file. Static libraries built to
    # be DLLs (pixman) mark their functions for export: the module must not pass them on.
    target_sources(Zephyra PRIVATE ${PROJECT_SOURCE_DIR}/cmake/Zephyra.def)
    target_link_options(Zephyra PRIVATE -Wl,--exclude-all-symbols -Wl,--no-undefined)
else()
    set_target_properties(Zephyra PROPERTIES LINK_DEPENDS ${PROJECT_SOURCE_DIR}/cmake/Zephyra.map)
    target_link_options(Zephyra PRIVATE
        -Wl,--version-script=${PROJECT_SOURCE_DIR}/cmake/Zephyra.map
        -Wl,--exclude-libs,ALL
        -Wl,--no-undefined)
endif()

# The factory bank is read from beside the module, so the two travel together.
if(TARGET zephyra_factory_bank)
    add_dependencies(Zephyra zephyra_factory_bank)
endif()
if(WIN32)
    set(default_vst_dir ${CMAKE_INSTALL_PREFIX}/VstPlugins)
else()
    set(default_vst_dir $ENV{HOME}/.vst)
endif()
set(ZEPHYRA_VST_DIR ${default_vst_dir} CACHE PATH "Folder the plug-in is installed into")
install(TARGETS Zephyra LIBRARY DESTINATION ${ZEPHYRA_VST_DIR} COMPONENT plugin)
install(FILES ${ZEPHYRA_FACTORY_BANK} DESTINATION ${ZEPHYRA_VST_DIR} COMPONENT plugin)
