// One instance of the LV2 plug-in: the same effect as the VST module, driven through its
// VST-side calls so that the audio path, the parameter conversions and the bank are the
// same code. The host's control ports are read at the start of each run; the bank travels
// in the plug-in's state.
#pragma once

#include "effect/AZephyra.h"
#include "lv2/Lv2Ports.h"

#include <lv2/core/lv2.h>
#include <lv2/state/state.h>
#include <lv2/urid/urid.h>

#include <atomic>
#include <memory>
#include <string>
#include <thread>

// Where the effect's reports of a user's edit go (its panel moved a control or took a
// typed value), as the VST host hears them through the automation call.
class Lv2EditListener {
public:
    virtual void Edited(int index, float normalised) = 0;

protected:
    ~Lv2EditListener() = default;
};

class Lv2Effect {
public:
    // features may be null or lack urid:map (then the state is neither saved nor restored);
    // makeEditor may be null (no editor).
    Lv2Effect(double sampleRate, const char* bundlePath, const LV2_Feature* const* features,
              ZephyraEditorFactory makeEditor = nullptr);

    void ConnectPort(uint32_t port, void* data);
    void Activate();
    void Run(uint32_t frames);
    void Deactivate();

    LV2_State_Status Save(LV2_State_Store_Function store, LV2_State_Handle handle);
    LV2_State_Status Restore(LV2_State_Retrieve_Function retrieve, LV2_State_Handle handle);

    AZephyra& Effect() { return *m_effect; }
    // Null to stop listening. The user-interface thread sets it while nothing edits.
    void SetEditListener(Lv2EditListener* listener) { m_editListener = listener; }

private:
    // What the effect asks of its host, answered for it: the interface version and the
    // bundle as the folder to find the factory bank in.
    static intptr_t AnswerEffect(AEffect* effect, int32_t opcode, int32_t index, intptr_t value,
                                 void* ptr, float opt);
    void ApplyControlPorts();
    void ForgetSeenPortValues();

    std::string m_bundlePath;
    Lv2EditListener* m_editListener = nullptr;
    LV2_URID m_bankKey = 0;
    LV2_URID m_chunkType = 0;
    std::unique_ptr<AZephyra> m_effect;
    // The thread applying the host's port values while it does: the edits the effect then
    // reports from that thread are the host's own and go nowhere, while the user
    // interface's edits from its own thread still reach the host. A thread id, not a
    // thread-local flag: a module's thread-local storage is allocated on a thread's first
    // use, which would be the audio thread's first run.
    std::atomic<std::thread::id> m_applyingPortsThread{};
    float* m_audio[lv2::kNumAudioPorts] = {};
    const float* m_controls[kNumParams] = {};
    float* m_meters[lv2::kNumMeterPorts] = {};
    // The port values last seen, so that only a changed port reaches the effect; NaN when
    // none has been seen since the instance was made or its state restored.
    float m_seenPortValue[kNumParams];
};
