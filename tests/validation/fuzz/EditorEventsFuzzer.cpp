// Any mouse and key events on the editor, its menus and dialogs, while the host automates, plays,
// changes programs and reopens the editor: afterwards every parameter displays, the audio finite.
#include "editor/CUIWindow.h"
#include "editor/CZephyraEditor.h"
#include "tests/validation/fuzz/FuzzInput.h"
#include "tests/validation/support/PluginChecks.h"
#include "toolkit/driver/CHeadlessDriver.h"
#include "toolkit/platform/KeyCodes.h"

namespace {

constexpr int kMargin = 24; // how far past the panel's edges the pointer goes

class UserSession {
public:
    UserSession(FuzzInput& input, CHeadlessDriver& driver)
        : m_input(input), m_driver(driver),
          m_hostWindow(driver.CreateHostWindow(CRect(40, 30, 640, 400))), m_noise(7) {
        m_plugin.Start(48000.0f, 256);
        OpenEditor();
    }
    ~UserSession() {
        m_plugin.Dispatch(effEditClose);
        m_driver.DestroyHostWindow(m_hostWindow);
    }

    void Run() {
        while (!m_input.Empty()) {
            Perform();
            m_driver.Pump();
        }
        m_driver.SetModifiers(0);
        RequireNoProblem(EffectProblem(m_plugin, m_noise, 256, false));
    }

private:
    void OpenEditor() {
        ERect* rect = nullptr;
        m_plugin.Dispatch(effEditGetRect, 0, 0, &rect);
        m_panelSize = CSize(rect->right - rect->left, rect->bottom - rect->top);
        m_plugin.Dispatch(effEditOpen, 0, 0, m_hostWindow);
        m_plugin.Dispatch(effEditIdle);
    }

    CWnd* Panel() {
        auto* editor = static_cast<CZephyraEditor*>(m_plugin.Effect().getEditor());
        return editor ? editor->GetUIWindow() : nullptr;
    }

    CPoint AnyPoint() {
        const int x = m_input.Take<uint16_t>() % (m_panelSize.cx + 2 * kMargin) - kMargin;
        const int y = m_input.Take<uint16_t>() % (m_panelSize.cy + 2 * kMargin) - kMargin;
        return CPoint(x, y);
    }

    void Perform() {
        const int kind = m_input.Small(9);
        CWnd* panel = Panel();
        if (panel == nullptr && kind < 5) {
            // The user reopens the editor that the host closed.
            OpenEditor();
            panel = Panel();
        }
        if (kind == 0) {
            m_driver.Press(panel, AnyPoint());
        } else if (kind == 1) {
            m_driver.Release(panel, AnyPoint());
        } else if (kind == 2) {
            m_driver.Move(panel, AnyPoint());
        } else if (kind == 3) {
            m_driver.Wheel(panel, AnyPoint(), m_input.Take<uint8_t>() & 1);
        } else if (kind == 4) {
            m_driver.DoubleClick(panel, AnyPoint());
        } else if (kind == 5) {
            const unsigned code = m_input.Take<uint8_t>();
            m_driver.Key(code, m_input.Take<uint8_t>());
        } else if (kind == 6) {
            m_driver.SetModifiers(m_input.Take<uint16_t>() & (kModifierCommand | kModifierShift |
                                                              kModifierOption | kModifierControl));
        } else {
            HostAction();
        }
    }

    void HostAction() {
        switch (m_input.Small(6)) {
        case 0:
            m_plugin.SetParameter(m_input.Small(kNumParams), m_input.Take<float>());
            break;
        case 1:
            RequireNoProblem(AudioProblem(m_plugin, m_noise, 1 + m_input.Small(256), false));
            break;
        case 2:
            m_plugin.Dispatch(effSetProgram, 0, m_input.Small(64));
            break;
        case 3:
            m_plugin.Dispatch(effEditClose);
            break;
        default:
            m_plugin.Dispatch(effEditIdle);
            break;
        }
    }

    FuzzInput& m_input;
    CHeadlessDriver& m_driver;
    void* m_hostWindow;
    HostedPlugin m_plugin;
    Noise m_noise;
    CSize m_panelSize;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    CHeadlessDriver driver;
    FuzzInput input(data, size);
    UserSession(input, driver).Run();
    return 0;
}
