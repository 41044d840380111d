#include "bench/EditorSession.h"

#include "bench/BenchSettings.h"
#include "editor/CZephyraEditor.h"
#include "effect/AZephyra.h"
#include "toolkit/driver/CHeadlessDriver.h"
#include "tools/EditorWindow.h"

#include <cmath>

namespace {

class HeadlessWindow : public HostWindow {
public:
    HeadlessWindow(CHeadlessDriver& driver, int width, int height)
        : m_driver(driver), m_handle(driver.CreateHostWindow(CRect(0, 0, width, height))) {}
    ~HeadlessWindow() override { m_driver.DestroyHostWindow(m_handle); }
    void* Handle() const override { return m_handle; }
    void HandleEvents() override {}

private:
    CHeadlessDriver& m_driver;
    void* m_handle;
};

class HeadlessScreen : public HostScreen {
public:
    std::unique_ptr<HostWindow> NewWindow(int width, int height) override {
        return std::make_unique<HeadlessWindow>(m_driver, width, height);
    }

private:
    CHeadlessDriver m_driver;
};

class X11Window : public HostWindow {
public:
    X11Window(int width, int height) : m_window(width, height, "Zephyra") {}
    void* Handle() const override { return m_window.parentForEditor(); }
    void HandleEvents() override { m_window.handleEvents(); }

private:
    EditorWindow m_window;
};

class X11Screen : public HostScreen {
public:
    // Fails here, rather than at the first window, when there is no X server.
    X11Screen() : m_probe(1, 1) {}
    std::unique_ptr<HostWindow> NewWindow(int width, int height) override {
        return std::make_unique<X11Window>(width, height);
    }

private:
    X11Window m_probe;
};

} // namespace

std::unique_ptr<HostScreen> HostScreen::Headless() {
    return std::make_unique<HeadlessScreen>();
}

std::unique_ptr<HostScreen> HostScreen::X11() {
    return std::make_unique<X11Screen>();
}

// The command-line host's call-back answers the effect. effClose deletes the effect, as it
// does in a host.
EditorSession::EditorSession()
    : m_record((new AZephyra(hostCallback, CZephyraEditor::Make))->getAeffect()) {
    m_host.sampleRate = kSampleRate;
    m_host.blockSize = kBlockSize;
    registerHostState(m_record, &m_host);
    Dispatch(effOpen);
    Dispatch(effSetSampleRate, 0, nullptr, kSampleRate);
    Dispatch(effSetBlockSize, kBlockSize);
    Dispatch(effMainsChanged, 1);
    for (const ParameterValue& setting : kTimedSettings)
        m_record->setParameter(m_record, setting.index, setting.normalised);
}

EditorSession::~EditorSession() {
    CloseEditor();
    Dispatch(effMainsChanged, 0);
    Dispatch(effClose);
    unregisterHostState(m_record);
}

void EditorSession::OpenEditor(HostScreen& screen) {
    ERect* rect = nullptr;
    Dispatch(effEditGetRect, 0, &rect);
    const int width = rect ? rect->right - rect->left : 0;
    const int height = rect ? rect->bottom - rect->top : 0;
    CloseEditor();
    m_window = screen.NewWindow(width, height);
    Dispatch(effEditOpen, 0, m_window->Handle());
    // The first idle paints the panel and ends the editor's own idling on its behalf.
    Idle();
}

// The editor's window lives inside the host's: it closes first.
void EditorSession::CloseEditor() {
    Dispatch(effEditClose);
    m_window.reset();
}

void EditorSession::HandleHostEvents() {
    if (m_window)
        m_window->HandleEvents();
}

void EditorSession::Idle() {
    Dispatch(effEditIdle);
}

void EditorSession::Draw() {
    Dispatch(effEditDraw);
}

void EditorSession::Play(int frames, float amplitude) {
    // 440 Hz: loud enough at any amplitude to show on the meters within one block.
    constexpr float kTwoPi = 6.2831853f;
    constexpr float kStep = kTwoPi * 440.0f / kSampleRate;
    float* inputs[] = {m_input.data(), m_input.data()};
    float* outputs[] = {m_outputs[0].data(), m_outputs[1].data()};
    while (frames > 0) {
        const int block = frames < kBlockSize ? frames : kBlockSize;
        for (int i = 0; i < block; ++i) {
            m_input[i] = amplitude * std::sin(m_phase);
            m_phase = std::fmod(m_phase + kStep, kTwoPi);
        }
        m_record->processReplacing(m_record, inputs, outputs, block);
        frames -= block;
    }
}

intptr_t EditorSession::Dispatch(int32_t opcode, intptr_t value, void* ptr, float opt) {
    return m_record->dispatcher(m_record, opcode, 0, value, ptr, opt);
}
