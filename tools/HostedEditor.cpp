#include "tools/HostedEditor.h"

#include "tools/PluginInstance.h"
#include "tools/ToolError.h"

namespace {

constexpr int kFallbackWidth = 400;
constexpr int kFallbackHeight = 300;

// The size the window starts at: the editor's own, asked before it opens.
struct InitialSize {
    int width = kFallbackWidth;
    int height = kFallbackHeight;
    InitialSize(const PluginInstance& plugin, const std::string& title) {
        if (!plugin.hasFlag(effFlagsHasEditor)) {
            throw ToolError(title + " has no editor");
        }
        editorSize(plugin, width, height);
    }
};

} // namespace

bool editorSize(const PluginInstance& plugin, int& width, int& height) {
    ERect* rectangle = nullptr;
    plugin.dispatch(effEditGetRect, 0, 0, &rectangle);
    if (rectangle == nullptr || rectangle->right <= rectangle->left ||
        rectangle->bottom <= rectangle->top) {
        return false;
    }
    width = rectangle->right - rectangle->left;
    height = rectangle->bottom - rectangle->top;
    return true;
}

HostedEditor::HostedEditor(PluginInstance& plugin, const std::string& title)
    : plugin(plugin), window([&] {
          const InitialSize size(plugin, title);
          return EditorWindow(size.width, size.height, title);
      }()) {
    plugin.host().resizeWindow = [this](int width, int height) {
        window.resize(width, height);
        return true;
    };
    int width = 0;
    int height = 0;
    if (plugin.dispatch(effEditOpen, 0, 0, window.parentForEditor()) == 0 &&
        !editorSize(plugin, width, height)) {
        plugin.host().resizeWindow = nullptr;
        throw ToolError("the plug-in did not open its editor");
    }
    if (editorSize(plugin, width, height)) {
        window.resize(width, height);
    }
}

HostedEditor::~HostedEditor() {
    plugin.dispatch(effEditClose);
    plugin.host().resizeWindow = nullptr;
}

void HostedEditor::idle() {
    plugin.dispatch(effEditIdle);
}
