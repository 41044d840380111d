// An equaliser with its editor, driven through its effect record the way a host drives it,
// on either screen the editor can open on: the in-memory one or the X server of DISPLAY.
#pragma once

#include "host/Vst2Interface.h"
#include "tools/HostState.h"

#include <memory>
#include <vector>

// A window of the host's, which an editor opens inside.
class HostWindow {
public:
    virtual ~HostWindow() = default;
    // The handle effEditOpen takes.
    virtual void* Handle() const = 0;
    // The host's share of event handling.
    virtual void HandleEvents() = 0;
};

class HostScreen {
public:
    virtual ~HostScreen() = default;
    virtual std::unique_ptr<HostWindow> NewWindow(int width, int height) = 0;

    // The in-memory screen; it becomes the screen every editor of the process opens on.
    static std::unique_ptr<HostScreen> Headless();
    // The X server of DISPLAY; throws std::runtime_error without one.
    static std::unique_ptr<HostScreen> X11();
};

class EditorSession {
public:
    static constexpr float kSampleRate = 48000.0f;
    static constexpr int kBlockSize = 512;

    // A running effect with the bench's usual settings; its editor closed.
    EditorSession();
    ~EditorSession();
    EditorSession(const EditorSession&) = delete;
    EditorSession& operator=(const EditorSession&) = delete;

    // Opens the editor in a new window of the screen, which goes when the editor closes.
    void OpenEditor(HostScreen& screen);
    void CloseEditor();
    void HandleHostEvents();
    void Idle();
    void Draw();
    // Frames of a tone at the given peak amplitude in both channels, in blocks of at most
    // kBlockSize.
    void Play(int frames, float amplitude);

private:
    intptr_t Dispatch(int32_t opcode, intptr_t value = 0, void* ptr = nullptr, float opt = 0.0f);

    HostState m_host;
    AEffect* m_record;
    std::unique_ptr<HostWindow> m_window;
    std::vector<float> m_input = std::vector<float>(kBlockSize);
    std::vector<float> m_outputs[2] = {std::vector<float>(kBlockSize),
                                       std::vector<float>(kBlockSize)};
    float m_phase = 0.0f;
};
