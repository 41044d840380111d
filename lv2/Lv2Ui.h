// The LV2 user interface: the effect's own editor, opened in the window the host hands
// over and idled by the host's idle calls, as the VST host does with effEditOpen and
// effEditIdle.
//
// The panel reaches the effect through the host's instance-access feature, the same object
// the audio side runs. The panel needs all of the bank (64 programs and names for the copy
// menu and the save dialog, the initial snapshot behind the lamp) and writes the default
// bank file; mirroring that through ports or atom messages would keep a second bank in
// step and move file writes off the user-interface thread for nothing. Hosts without
// instance access (remote or sandboxed user interfaces) show their generic controls, which
// reach everything through the ports.
//
// Edits go to the host as port values; a drag on a knob or slider is one gesture, begun
// and ended through ui:touch where the host offers it. The host's own port changes reach the panel
// through the effect when the audio side applies them, so port events are not needed; taking them
// as well would let a late echo of a drag's earlier value pull the knob back.
#pragma once

#include "lv2/Lv2Effect.h"

#include <lv2/ui/ui.h>

#include <memory>

class CZephyraEditor;

class Lv2Ui final : private Lv2EditListener {
public:
    // Null when the host offers no instance access or no parent window.
    static std::unique_ptr<Lv2Ui> Create(LV2UI_Write_Function write, LV2UI_Controller controller,
                                         const LV2_Feature* const* features);
    ~Lv2Ui();
    Lv2Ui(const Lv2Ui&) = delete;
    Lv2Ui& operator=(const Lv2Ui&) = delete;

    // The panel's own window, which the host embeds.
    LV2UI_Widget Widget() const;
    // The host's regular idle call: the panel's messages, timers and painting.
    int Idle();

private:
    Lv2Ui(Lv2Effect& plugin, CZephyraEditor& editor, LV2UI_Write_Function write,
          LV2UI_Controller controller, const LV2UI_Touch* touch);

    void Edited(int index, float normalised) override;
    void Touch(int index, bool grabbed);

    Lv2Effect& m_plugin;
    CZephyraEditor& m_editor;
    LV2UI_Write_Function m_write;
    LV2UI_Controller m_controller;
    const LV2UI_Touch* m_touch;
    // The parameter whose gesture is open, -1 for none; closed when the panel goes.
    int m_touched = -1;
};
