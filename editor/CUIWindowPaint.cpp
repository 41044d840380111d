// The panel's painting: background, read-outs, meters and lamps composed off-screen and
// copied at once, then the controls straight onto the window.
#include "editor/CUIWindow.h"
#include "editor/CZephyraEditor.h"
#include "editor/MeterScale.h"
#include "toolkit/CClientDC.h"
#include "toolkit/CPaintDC.h"

namespace {
// Read-outs sit this much lower than centred, to suit the wells of the background.
constexpr int kReadoutDrop = 3;
constexpr COLORREF kReadoutColour = 0x000000;
} // namespace

void CUIWindow::OnPaint() {
    m_bPainted = true;
    CPaintDC dc(this);
    CRect client;
    GetClientRect(&client);
    CDC sources;
    sources.CreateCompatibleDC(&dc);
    CDC image;
    image.CreateBitmapDC(client.Width(), client.Height());

    CBitmap* previousBitmap = sources.SelectObject(m_pBackground);
    image.BitBlt(0, 0, m_pBackground->Width(), m_pBackground->Height(), &sources, 0, 0, SRCCOPY);
    image.SetBkMode(TRANSPARENT);
    image.SetTextColor(kReadoutColour);
    CFont* previousFont = image.SelectObject(&m_smallFont);
    DrawGain1Disp(&image);
    DrawFreq1Disp(&image);
    DrawQ1Disp(&image);
    DrawGain2Disp(&image);
    DrawFreq2Disp(&image);
    DrawQ2Disp(&image);
    DrawOutDisp(&image);
    DrawInputDisp(&image);
    DrawVU(&image);
    image.SelectObject(previousFont);
    DrawLamp(&image, &sources);
    sources.SelectObject(previousBitmap);

    dc.BitBlt(0, 0, client.Width(), client.Height(), &image, 0, 0, SRCCOPY);
    DrawControls(&dc);
}

// The save button, and the program lamp lit when the program differs from its stored state.
void CUIWindow::DrawLamp(CDC* dc, CDC* sources) {
    const CRect save(kSaveButtonRect);
    sources->SelectObject(&Bitmap(kBitmapSave));
    dc->BitBlt(save.left, save.top, save.Width(), save.Height(), sources, 0, 0, SRCCOPY);
    CQMTBitmap& lamp = Bitmap(kBitmapProgramLamp);
    const CRect place(kProgramLampRect);
    const int sourceRow = Effect()->IsProgramChanged() ? lamp.Height() / 2 : 0;
    sources->SelectObject(&lamp);
    dc->BitBlt(place.left, place.top, place.Width(), place.Height(), sources, 0, sourceRow,
               SRCCOPY);
}

void CUIWindow::DrawControls(CDC* dc) {
    for (CQMTNewBitmapTumamiDC& knob : m_knobs)
        knob.Draw(dc);
    for (CQMTBitmapSliderDC& slider : m_sliders)
        slider.DrawSlider(dc);
    m_onOffSwitch.DrawSwitch(dc);
    for (CQMTBitmapSwitch2DC& typeSwitch : m_typeSwitches)
        typeSwitch.DrawSwitch(dc);
    m_copyButton.DrawSwitch(dc);
}

// The host's own text for the control's parameter, centred in its read-out well and cut at
// the well's edges.
void CUIWindow::DrawReadout(CDC* dc, const ValueControlLayout& control) {
    char text[64] = {};
    Effect()->getParameterDisplay(control.parameter, text);
    const CString shown(text);
    const CRect box(control.readout);
    const CSize extent = dc->GetTextExtent(shown);
    const int x = box.left + (box.Width() - extent.cx) / 2;
    const int y = box.top + (box.Height() - extent.cy) / 2 + kReadoutDrop;
    dc->ExtTextOut(x, y, ETO_CLIPPED, &box, shown);
}

// Each meter is its unlit scale with the lit scale pasted from the level's row down.
void CUIWindow::DrawVU(CDC* dc) {
    CQMTBitmap& scale = Bitmap(kBitmapMeter);
    const int width = scale.Width() / 2;
    const int height = scale.Height();
    CDC sources;
    sources.CreateCompatibleDC(dc);
    CBitmap* previous = sources.SelectObject(&scale);
    for (int meter = 0; meter < kMeterCount; ++meter) {
        CDC strip;
        strip.CreateBitmapDC(width, height);
        strip.BitBlt(0, 0, width, height, &sources, 0, 0, SRCCOPY);
        const int litTop = MeterLitTop(m_meterLevels[meter]);
        strip.BitBlt(0, litTop, width, height - litTop, &sources, width, litTop, SRCCOPY);
        dc->BitBlt(kMeterLefts[meter], kMeterTop, width, height, &strip, 0, 0, SRCCOPY);
    }
    sources.SelectObject(previous);
}

void CUIWindow::idle() {
    DeliverPendingUpdates();
    UpdateMeters();
}

// New peaks when the audio side has processed since the last look, else a slow fall; the
// meters are drawn only when a level moved.
void CUIWindow::UpdateMeters() {
    ZephyraEditorEffect* effect = Effect();
    const std::array<float, kMeterCount> before = m_meterLevels;
    const std::uint16_t sequence = effect->GetProcessCounter();
    if (sequence != m_meterSequence) {
        m_meterSequence = sequence;
        float peaks[kMeterCount] = {};
        effect->GetVU(&peaks[0], &peaks[1], &peaks[2], &peaks[3]);
        for (int meter = 0; meter < kMeterCount; ++meter)
            m_meterLevels[meter] = MeterLevelOfPeak(peaks[meter]);
    } else {
        for (float& level : m_meterLevels)
            level = FallenMeterLevel(level);
    }
    if (m_meterLevels == before)
        return;
    CClientDC dc(this);
    DrawVU(&dc);
}
