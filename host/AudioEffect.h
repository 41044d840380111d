// The base effect: owns the record the host holds, turns the record's function pointers
// back into virtual calls (the trampolines), answers the basic requests (dispatcher
// opcodes 0 to 24) and wraps the first host call-backs. A plug-in derives from
// AudioEffectX, which adds the rest of the interface.
#pragma once

#include "host/AEffEditor.h"
#include "host/Vst2Interface.h"

class AudioEffect {
public:
    AudioEffect(audioMasterCallback audioMaster, int32_t numPrograms, int32_t numParams);
    virtual ~AudioEffect();
    AudioEffect(const AudioEffect&) = delete;
    AudioEffect& operator=(const AudioEffect&) = delete;

    virtual intptr_t dispatcher(int32_t opcode, int32_t index, intptr_t value, void* ptr,
                                float opt);
    virtual void open() {}
    virtual void close() {}
    virtual void suspend() {}
    virtual void resume() {}
    virtual void setSampleRate(float sampleRate) { this->sampleRate = sampleRate; }
    virtual void setBlockSize(int32_t blockSize) { this->blockSize = blockSize; }
    virtual void processReplacing(float** inputs, float** outputs, int32_t sampleFrames) = 0;
    virtual void processDoubleReplacing(double** /*inputs*/, double** /*outputs*/,
                                        int32_t /*sampleFrames*/) {}
    virtual void setParameter(int32_t /*index*/, float /*value*/) {}
    virtual float getParameter(int32_t /*index*/) { return 0.0f; }
    virtual void setParameterAutomated(int32_t index, float value);
    virtual int32_t getProgram() { return curProgram; }
    virtual void setProgram(int32_t program) { curProgram = program; }
    virtual void setProgramName(char* /*name*/) {}
    virtual void getProgramName(char* name) { *name = 0; }
    virtual void getParameterLabel(int32_t /*index*/, char* label) { *label = 0; }
    virtual void getParameterDisplay(int32_t /*index*/, char* text) { *text = 0; }
    virtual void getParameterName(int32_t /*index*/, char* text) { *text = 0; }
    virtual int32_t getChunk(void** /*data*/, bool /*isPreset*/) { return 0; }
    virtual int32_t setChunk(void* /*data*/, int32_t /*byteSize*/, bool /*isPreset*/) { return 0; }
    virtual void setUniqueID(int32_t id) { cEffect.uniqueID = id; }
    virtual void setNumInputs(int32_t inputs) { cEffect.numInputs = inputs; }
    virtual void setNumOutputs(int32_t outputs) { cEffect.numOutputs = outputs; }
    virtual void canProcessReplacing(bool state) { setFlag(effFlagsCanReplacing, state); }
    virtual void canDoubleReplacing(bool state) { setFlag(effFlagsCanDoubleReplacing, state); }
    virtual void programsAreChunks(bool state) { setFlag(effFlagsProgramChunks, state); }
    virtual void setInitialDelay(int32_t delay) { cEffect.initialDelay = delay; }
    virtual AEffEditor* getEditor() { return editor; }
    virtual AEffect* getAeffect() { return &cEffect; }
    virtual float getSampleRate() { return sampleRate; }
    virtual int32_t getBlockSize() { return blockSize; }
    virtual int32_t getMasterVersion();
    virtual int32_t getCurrentUniqueId();
    virtual void masterIdle();
    virtual void dB2string(float value, char* text, int32_t maxLen);
    virtual void Hz2string(float samples, char* text, int32_t maxLen);
    virtual void ms2string(float samples, char* text, int32_t maxLen);
    virtual void float2string(float value, char* text, int32_t maxLen);
    virtual void int2string(int32_t value, char* text, int32_t maxLen);
    virtual void process(float** /*inputs*/, float** /*outputs*/, int32_t /*sampleFrames*/) {}
    virtual float getVu() { return 0.0f; }
    virtual void hasVu(bool state) { setFlag(effFlagsHasVu, state); }
    virtual void hasClip(bool state) { setFlag(effFlagsHasClip, state); }
    virtual void canMono(bool state) { setFlag(effFlagsCanMono, state); }
    virtual void setRealtimeQualities(int32_t qualities) { cEffect.realQualities = qualities; }
    virtual void setOfflineQualities(int32_t qualities) { cEffect.offQualities = qualities; }
    virtual bool isInputConnected(int32_t input);
    virtual bool isOutputConnected(int32_t output);

    // Not virtual: the editor registers itself here, which also tells the host through
    // the record's flags that there is an editor.
    void setEditor(AEffEditor* newEditor);

    // The record's function pointers.
    static intptr_t dispatchEffectClass(AEffect* e, int32_t opcode, int32_t index, intptr_t value,
                                        void* ptr, float opt);
    static float getParameterClass(AEffect* e, int32_t index);
    static void setParameterClass(AEffect* e, int32_t index, float value);
    static void processClass(AEffect* e, float** inputs, float** outputs, int32_t sampleFrames);
    static void processClassReplacing(AEffect* e, float** inputs, float** outputs,
                                      int32_t sampleFrames);
    static void processClassDoubleReplacing(AEffect* e, double** inputs, double** outputs,
                                            int32_t sampleFrames);

protected:
    void setFlag(int32_t flag, bool state);
    // Calls the host with this effect's record; 0 when there is no call-back.
    intptr_t callHost(int32_t opcode, int32_t index = 0, intptr_t value = 0, void* ptr = nullptr,
                      float opt = 0.0f);

    audioMasterCallback audioMaster;
    AEffEditor* editor;
    float sampleRate;
    int32_t blockSize;
    int32_t numPrograms;
    int32_t numParams;
    int32_t curProgram;
    AEffect cEffect;
};

// Made by the plug-in: its one effect object, built for the given host call-back.
AudioEffect* createEffectInstance(audioMasterCallback audioMaster);
