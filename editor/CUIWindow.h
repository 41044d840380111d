// The editor's main panel: a fixed-size child window as large as the background picture
// that holds every control of the equaliser, paints itself from bitmaps, shows the values
// as text, runs the level meters on a timer and turns the user's actions into parameter
// changes. Owned by the editor (CZephyraEditor) while it is open; it owns its controls,
// fonts and bitmaps. Everything here runs on the user-interface thread: what the effect
// reports from other threads reaches it through the editor's PendingPanelUpdates.
#pragma once

#include "editor/CQMTBitmap.h"
#include "editor/CQMTBitmapSliderDC.h"
#include "editor/CQMTBitmapSwitch2DC.h"
#include "editor/CQMTFloatEditWnd.h"
#include "editor/CQMTNewBitmapTumamiDC.h"
#include "editor/UIWindowLayout.h"
#include "effect/ZephyraEditorSeam.h"
#include "toolkit/CFont.h"
#include "toolkit/CWnd.h"
#include "toolkit/MessageMap.h"

#include <array>
#include <cstdint>

class CZephyraEditor;

class CUIWindow : public CWnd, public ZephyraPanel {
public:
    CUIWindow();
    ~CUIWindow() override;

    // Creates the panel as a visible child of parent, as large as the background.
    bool MakeWindow(CWnd* parent, CQMTBitmap* background, CZephyraEditor* editor);

    // A parameter changed outside the panel: the control follows without telling anyone.
    // Nothing happens before the panel's first paint.
    void UpdateControl(int index, float value) override;
    // The program or its modified state may have changed: the lamp and read-outs repaint.
    void UpdateModify() override;
    // The host's idle and every timer tick: pending changes, then the meters.
    void idle();

    // The one call-back of every control; user is the panel.
    static bool ControlCallback(int id, float value, void* user);
    // A control moved by the user: the effect applies the value and tells the host.
    void ChangeControl(int id, float value);

    // Typed entry over a read-out: values, limits and the place as the panel gives them
    // (tenths), target the read-out's entry target.
    void ShowEdit(int value, int minimum, int maximum, bool sign, int width, CRect rect,
                  int target);
    void HideEdit();
    int GetEditTarget() const { return m_editTarget; }
    CQMTFloatEditWnd& EntryWindow() { return m_entry; }

    // The read-outs, each in its well.
    void DrawGain1Disp(CDC* dc) { DrawReadout(dc, kKnobLayout[0]); }
    void DrawFreq1Disp(CDC* dc) { DrawReadout(dc, kKnobLayout[1]); }
    void DrawQ1Disp(CDC* dc) { DrawReadout(dc, kKnobLayout[2]); }
    void DrawGain2Disp(CDC* dc) { DrawReadout(dc, kKnobLayout[3]); }
    void DrawFreq2Disp(CDC* dc) { DrawReadout(dc, kKnobLayout[4]); }
    void DrawQ2Disp(CDC* dc) { DrawReadout(dc, kKnobLayout[5]); }
    void DrawOutDisp(CDC* dc) { DrawReadout(dc, kSliderLayout[1]); }
    void DrawInputDisp(CDC* dc) { DrawReadout(dc, kSliderLayout[0]); }
    void DrawVU(CDC* dc);

    // What the panel shows, for its owner and for tests.
    const CQMTNewBitmapTumamiDC& Knob(int slot) const { return m_knobs[slot]; }
    const CQMTBitmapSliderDC& Slider(int slot) const { return m_sliders[slot]; }
    const CQMTBitmapSwitch2DC& OnOffSwitch() const { return m_onOffSwitch; }
    const CQMTBitmapSwitch2DC& TypeSwitch(int slot) const { return m_typeSwitches[slot]; }
    const CQMTBitmapSwitch2DC& CopyButton() const { return m_copyButton; }
    float MeterLevel(int meter) const { return m_meterLevels[meter]; }
    bool IsPainted() const { return m_bPainted; }

protected:
    int OnCreate(CREATESTRUCT* create);
    void OnPaint();
    void OnSize(UINT type, int cx, int cy);
    void OnTimer(UINT id);
    void OnLButtonDown(UINT flags, CPoint point);
    void OnLButtonDblClk(UINT flags, CPoint point);
    void OnMouseMove(UINT flags, CPoint point);
    void OnLButtonUp(UINT flags, CPoint point);
    LRESULT OnInputValReturn(WPARAM wParam, LPARAM lParam);
    // A program chosen in the copy menu: its settings become the current program's.
    void OnSelCopyPg(UINT command);
    LRESULT OnInitMenuPopup(WPARAM menu, LPARAM lParam);

    DECLARE_MESSAGE_MAP()

private:
    ZephyraEditorEffect* Effect() const;
    CQMTBitmap& Bitmap(int resource);
    void LoadBitmaps();
    void MakeControls();
    // Reports the control's drags to the editor as gestures on its parameter.
    void TellGestures(CQMTDragControl& control, int parameter);
    void ShowEffectValues();
    void DrawReadout(CDC* dc, const ValueControlLayout& control);
    void DrawLamp(CDC* dc, CDC* sources);
    void DrawControls(CDC* dc);
    void SelectType(int parameter, int type, CDC* dc);
    void DeliverPendingUpdates();
    void UpdateMeters();
    void InvalidateProgramLamp();
    bool StartEntry(CPoint point);
    bool PressDragControl(CPoint point, CDC* dc);
    CQMTDragControl* DraggedControl();
    std::array<CQMTDragControl*, kKnobCount + kSliderCount> DragControls();
    bool PressSwitch(CPoint point, CDC* dc);
    void SelectTypeByUser(int slot, CDC* dc);
    void ShowCopyMenu();
    void ReleaseCopyButton();
    void SaveWithDialog();

    CZephyraEditor* m_pEditor = nullptr;
    CQMTBitmap* m_pBackground = nullptr;
    std::array<CQMTBitmap, kPanelBitmapCount> m_bitmaps;
    CFont m_smallFont; // the read-outs
    CFont m_largeFont; // the entry window
    std::array<CQMTNewBitmapTumamiDC, kKnobCount> m_knobs;
    std::array<CQMTBitmapSliderDC, kSliderCount> m_sliders;
    CQMTBitmapSwitch2DC m_onOffSwitch;
    std::array<CQMTBitmapSwitch2DC, kTypeSwitchCount> m_typeSwitches;
    CQMTBitmapSwitch2DC m_copyButton;
    CQMTFloatEditWnd m_entry;
    std::array<float, kMeterCount> m_meterLevels{};
    bool m_bPainted = false;
    std::uint16_t m_meterSequence = 0xFFFF;
    int m_editTarget = kNoEntry;
};
