// How values travel between the panel's controls and the effect.
#include "editor/CUIWindow.h"
#include "editor/CZephyraEditor.h"
#include "toolkit/CClientDC.h"

namespace {

constexpr int VK_SHIFT = 16;
constexpr int VK_CONTROL = 17;

bool KeyIsDown(int virtualKey) {
    return (GetKeyState(virtualKey) & 0x8000u) != 0;
}

// The normalised values of the three stepped filter types.
constexpr float kTypeValues[kTypesPerBand] = {0.0f, 0.5f, 1.0f};

} // namespace

void CUIWindow::ChangeControl(int id, float value) {
    ZephyraEditorEffect* effect = Effect();
    for (const ValueControlLayout& layout : kKnobLayout) {
        if (static_cast<int>(layout.id) == id)
            effect->setParameterFormUI(layout.parameter, value);
    }
    for (const ValueControlLayout& layout : kSliderLayout) {
        if (static_cast<int>(layout.id) == id)
            effect->setParameterFormUI(layout.parameter, value);
    }
    for (const SwitchLayout& layout : kTypeSwitchLayout) {
        if (static_cast<int>(layout.id) == id)
            effect->setParameterFormUI(layout.parameter, kTypeValues[layout.type]);
    }
    if (id == static_cast<int>(kOnOffSwitchLayout.id)) {
        effect->setParameterFormUI(kParamOnOff, value);
        // Shift wins when both are held.
        if (KeyIsDown(VK_SHIFT))
            effect->ProgramToFactory();
        else if (KeyIsDown(VK_CONTROL))
            effect->ProgramToAllFactory();
    }
    InvalidateProgramLamp();
}

void CUIWindow::UpdateControl(int index, float value) {
    if (!m_bPainted)
        return;
    CClientDC dc(this);
    if (index == kParamOnOff) {
        m_onOffSwitch.SetValue(static_cast<int>(NormalizeValToDWValue(kParamOnOff, value)), false);
        m_onOffSwitch.DrawSwitch(&dc);
    } else if (index == kParamType1 || index == kParamType2) {
        SelectType(index, static_cast<int>(NormalizeValToDWValue(index, value)), &dc);
    } else {
        for (int slot = 0; slot < kKnobCount; ++slot) {
            if (kKnobLayout[slot].parameter == index) {
                m_knobs[slot].SetValue(value, nullptr, false);
                m_knobs[slot].Draw(&dc);
            }
        }
        for (int slot = 0; slot < kSliderCount; ++slot) {
            if (kSliderLayout[slot].parameter == index) {
                m_sliders[slot].SetValue(value, nullptr, false);
                m_sliders[slot].DrawSlider(&dc);
            }
        }
    }
    InvalidateProgramLamp();
}

// Exactly the band's switch for the type is on, without telling anyone.
void CUIWindow::SelectType(int parameter, int type, CDC* dc) {
    for (int slot = 0; slot < kTypeSwitchCount; ++slot) {
        const SwitchLayout& layout = kTypeSwitchLayout[slot];
        if (layout.parameter != parameter)
            continue;
        m_typeSwitches[slot].SetValue(layout.type == type ? 1 : 0, false);
        m_typeSwitches[slot].DrawSwitch(dc);
    }
}

void CUIWindow::UpdateModify() {
    InvalidateProgramLamp();
}

// Changes recorded before the first paint wait for it: the panel then shows them.
void CUIWindow::DeliverPendingUpdates() {
    if (m_bPainted)
        m_pEditor->PendingUpdates().Deliver(*this);
}
