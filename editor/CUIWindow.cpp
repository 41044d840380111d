#include "editor/CUIWindow.h"

#include "editor/CZephyraEditor.h"
#include "editor/MeterScale.h"
#include "toolkit/WinStyles.h"

namespace {
// The entry window's text is larger than the read-outs'.
constexpr int kReadoutFontSize = 9;
constexpr int kEntryFontSize = 12;
constexpr const char kPanelFontFace[] = "Osaka";
// The entry window's first size; every entry sets its own.
constexpr int kEntryWindowDigits = 6;
} // namespace

BEGIN_MESSAGE_MAP(CUIWindow, CWnd)
ON_WM_CREATE()
ON_WM_PAINT()
ON_WM_SIZE()
ON_WM_TIMER()
ON_WM_LBUTTONDOWN()
ON_WM_LBUTTONDBLCLK()
ON_WM_MOUSEMOVE()
ON_WM_LBUTTONUP()
ON_MESSAGE(WM_ENTRY_RETURN, OnInputValReturn)
ON_MESSAGE(WM_INITMENUPOPUP, OnInitMenuPopup)
ON_COMMAND_RANGE(kCopyProgramFirstCommand, kCopyProgramLastCommand, OnSelCopyPg)
END_MESSAGE_MAP()

CUIWindow::CUIWindow() = default;

CUIWindow::~CUIWindow() {
    if (GetSafeHwnd())
        DestroyWindow();
}

bool CUIWindow::MakeWindow(CWnd* parent, CQMTBitmap* background, CZephyraEditor* editor) {
    m_pEditor = editor;
    m_pBackground = background;
    m_smallFont.CreatePointFont(kReadoutFontSize, kPanelFontFace);
    m_largeFont.CreatePointFont(kEntryFontSize, kPanelFontFace);
    const CRect frame(0, 0, background->Width(), background->Height());
    return Create(nullptr, "UIWindow", WS_CHILD | WS_VISIBLE, frame, parent, 0);
}

ZephyraEditorEffect* CUIWindow::Effect() const {
    return m_pEditor->GetZephyra();
}

CQMTBitmap& CUIWindow::Bitmap(int resource) {
    return m_bitmaps[static_cast<std::size_t>(resource - kFirstPanelBitmap)];
}

int CUIWindow::OnCreate(CREATESTRUCT* create) {
    if (CWnd::OnCreate(create) == -1)
        return -1;
    LoadBitmaps();
    MakeControls();
    ShowEffectValues();
    m_entry.MakeWindow(this, this, "", CRect(), kEntryWindowDigits, &m_largeFont, true);
    m_entry.ShowWindow(SW_HIDE);
    m_editTarget = kNoEntry;
    m_meterLevels.fill(kMeterFloorDb);
    m_meterSequence = 0xFFFF;
    SetTimer(kMeterTimerId, kMeterTimerPeriodMs, nullptr);
    return 0;
}

void CUIWindow::LoadBitmaps() {
    for (int resource = kFirstPanelBitmap; resource < kFirstPanelBitmap + kPanelBitmapCount;
         ++resource)
        Bitmap(resource).LoadResourceBitmap(MAKEINTRESOURCE(resource));
}

void CUIWindow::TellGestures(CQMTDragControl& control, int parameter) {
    control.SetGestureHandler([this, parameter](bool dragging) {
        if (m_pEditor)
            m_pEditor->DragGesture(parameter, dragging);
    });
}

void CUIWindow::MakeControls() {
    for (int slot = 0; slot < kKnobCount; ++slot) {
        const ValueControlLayout& knob = kKnobLayout[slot];
        m_knobs[slot].Make(knob.control, knob.readout, this, &Bitmap(kBitmapKnobStrip),
                           kKnobStyle.min, kKnobStyle.max, knob.id, kKnobStyle.frameCount,
                           kKnobStyle.angleFrom, kKnobStyle.angleTo, kKnobStyle.spare, false,
                           ControlCallback, this);
        TellGestures(m_knobs[slot], knob.parameter);
    }
    // The thumb's centre travels from the bottom of the track to its top.
    CQMTBitmap& track = Bitmap(kBitmapSliderBackground);
    CQMTBitmap& thumb = Bitmap(kBitmapSliderThumb);
    const CPoint bottom(1, track.Height() - thumb.Height() / 2);
    const CPoint top(1, thumb.Height() / 2);
    for (int slot = 0; slot < kSliderCount; ++slot) {
        const ValueControlLayout& slider = kSliderLayout[slot];
        m_sliders[slot].Make(slider.control, slider.readout, this, &track, nullptr, &thumb, 0.0f,
                             1.0f, bottom, top, slider.id, 1, true, false, false, false,
                             ControlCallback, this);
        TellGestures(m_sliders[slot], slider.parameter);
    }
    const auto makeSwitch = [this](CQMTBitmapSwitch2DC& control, const SwitchLayout& layout) {
        control.Make(layout.rect, this, &Bitmap(layout.offBitmap), &Bitmap(layout.onBitmap),
                     layout.id, CRect(), false, nullptr, ControlCallback, this);
    };
    makeSwitch(m_onOffSwitch, kOnOffSwitchLayout);
    for (int slot = 0; slot < kTypeSwitchCount; ++slot)
        makeSwitch(m_typeSwitches[slot], kTypeSwitchLayout[slot]);
    makeSwitch(m_copyButton, kCopyButtonLayout);
}

// A fresh panel shows the effect's values, not the controls' defaults, and tells nobody.
void CUIWindow::ShowEffectValues() {
    ZephyraEditorEffect* effect = Effect();
    for (int slot = 0; slot < kKnobCount; ++slot)
        m_knobs[slot].SetValue(effect->getParameter(kKnobLayout[slot].parameter), nullptr, false);
    for (int slot = 0; slot < kSliderCount; ++slot)
        m_sliders[slot].SetValue(effect->getParameter(kSliderLayout[slot].parameter), nullptr,
                                 false);
    // The switch shows the value's integer part, non-zero being on.
    m_onOffSwitch.SetValue(OnOffValueIsOn(effect->getParameter(kParamOnOff)) ? 1 : 0, false);
    // The type switches compare the type itself (0, 1 or 2), not its normalised value.
    for (int slot = 0; slot < kTypeSwitchCount; ++slot) {
        const SwitchLayout& layout = kTypeSwitchLayout[slot];
        if (effect->getParameterDisplayVal(layout.parameter) == static_cast<float>(layout.type))
            m_typeSwitches[slot].SetValue(1, false);
    }
}

void CUIWindow::OnSize(UINT type, int cx, int cy) {
    CWnd::OnSize(type, cx, cy);
    Invalidate(true);
}

void CUIWindow::OnTimer(UINT id) {
    CWnd::OnTimer(id);
    idle();
}

bool CUIWindow::ControlCallback(int id, float value, void* user) {
    static_cast<CUIWindow*>(user)->ChangeControl(id, value);
    return true;
}

void CUIWindow::InvalidateProgramLamp() {
    InvalidateRect(&kProgramLampRect, true);
}
