// A plug-in's editor open inside a window of the host's own, sized as the editor asks
// (before opening and again after: some editors know their size only then). The editor is
// closed before its window goes, on every path out, since its window is a child of it.
#pragma once

#include "tools/EditorWindow.h"

#include <string>

class PluginInstance;

// The editor's size as the plug-in tells it; false, and the sizes untouched, when it
// cannot say.
bool editorSize(const PluginInstance& plugin, int& width, int& height);

class HostedEditor {
public:
    // Throws ToolError when the plug-in has no editor, there is no window system, or the
    // editor does not open.
    HostedEditor(PluginInstance& plugin, const std::string& title);
    ~HostedEditor();
    HostedEditor(const HostedEditor&) = delete;
    HostedEditor& operator=(const HostedEditor&) = delete;

    // Handles the window's events; false once the user has asked to close it.
    bool handleEvents() { return window.handleEvents(); }
    // The host's idle call, which lets the editor draw and run its timers.
    void idle();
    CairoSurface capture() { return window.capture(); }

private:
    PluginInstance& plugin;
    EditorWindow window;
};
