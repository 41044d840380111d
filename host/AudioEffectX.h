// The extended base effect: the requests of opcodes 25 to 79, their plug-in-side
// defaults, the remaining host call-backs and the speaker-arrangement helpers.
#pragma once

#include "host/AudioEffect.h"

class AudioEffectX : public AudioEffect {
public:
    AudioEffectX(audioMasterCallback audioMaster, int32_t numPrograms, int32_t numParams)
        : AudioEffect(audioMaster, numPrograms, numParams) {}

    intptr_t dispatcher(int32_t opcode, int32_t index, intptr_t value, void* ptr,
                        float opt) override;
    void resume() override;

    virtual bool canParameterBeAutomated(int32_t /*index*/) { return true; }
    virtual bool string2parameter(int32_t /*index*/, char* /*text*/) { return false; }
    virtual bool getParameterProperties(int32_t /*index*/, VstParameterProperties* /*p*/) {
        return false;
    }
    virtual bool beginEdit(int32_t index);
    virtual bool endEdit(int32_t index);

    virtual bool getProgramNameIndexed(int32_t /*category*/, int32_t /*index*/, char* /*text*/) {
        return false;
    }
    virtual bool beginSetProgram() { return false; }
    virtual bool endSetProgram() { return false; }
    virtual int32_t beginLoadBank(VstPatchChunkInfo* /*info*/) { return 0; }
    virtual int32_t beginLoadProgram(VstPatchChunkInfo* /*info*/) { return 0; }

    virtual bool ioChanged();
    virtual double updateSampleRate();
    virtual int32_t updateBlockSize();
    virtual int32_t getInputLatency();
    virtual int32_t getOutputLatency();

    virtual bool getInputProperties(int32_t /*index*/, VstPinProperties* /*p*/) { return false; }
    virtual bool getOutputProperties(int32_t /*index*/, VstPinProperties* /*p*/) { return false; }
    virtual bool setSpeakerArrangement(VstSpeakerArrangement* /*input*/,
                                       VstSpeakerArrangement* /*output*/) {
        return false;
    }
    virtual bool getSpeakerArrangement(VstSpeakerArrangement** input,
                                       VstSpeakerArrangement** output);
    virtual bool setBypass(bool /*onOff*/) { return false; }
    virtual bool setPanLaw(int32_t /*type*/, float /*value*/) { return false; }
    virtual bool setProcessPrecision(int32_t /*precision*/) { return false; }
    virtual int32_t getNumMidiInputChannels() { return 0; }
    virtual int32_t getNumMidiOutputChannels() { return 0; }

    virtual VstTimeInfo* getTimeInfo(int32_t filter);
    virtual int32_t getCurrentProcessLevel();
    virtual int32_t getAutomationState();

    virtual int32_t processEvents(VstEvents* /*events*/) { return 0; }
    virtual int32_t startProcess() { return 0; }
    virtual int32_t stopProcess() { return 0; }
    virtual bool processVariableIo(VstVariableIo* /*io*/) { return false; }
    virtual int32_t setTotalSampleToProcess(int32_t value) { return value; }

    virtual bool getHostVendorString(char* text);
    virtual bool getHostProductString(char* text);
    virtual int32_t getHostVendorVersion();
    virtual intptr_t hostVendorSpecific(int32_t lArg, intptr_t lArg2, void* ptrArg, float fArg);
    virtual int32_t canHostDo(char* text);
    virtual int32_t getHostLanguage();

    virtual void isSynth(bool state) { setFlag(effFlagsIsSynth, state); }
    virtual void noTail(bool state) { setFlag(effFlagsNoSoundInStop, state); }

    virtual int32_t getGetTailSize() { return 0; }
    virtual void* getDirectory();
    virtual bool getEffectName(char* /*name*/) { return false; }
    virtual bool getVendorString(char* /*text*/) { return false; }
    virtual bool getProductString(char* /*text*/) { return false; }
    virtual int32_t getVendorVersion() { return 0; }
    virtual intptr_t vendorSpecific(int32_t /*lArg*/, intptr_t /*lArg2*/, void* /*ptrArg*/,
                                    float /*fArg*/) {
        return 0;
    }
    virtual int32_t canDo(char* /*text*/) { return 0; }
    virtual int32_t getVstVersion() { return 2300; }
    virtual VstPlugCategory getPlugCategory();

    virtual int32_t getMidiProgramName(int32_t /*channel*/, MidiProgramName* /*name*/) { return 0; }
    virtual int32_t getCurrentMidiProgram(int32_t /*channel*/, MidiProgramName* /*name*/) {
        return -1;
    }
    virtual int32_t getMidiProgramCategory(int32_t /*channel*/, MidiProgramCategory* /*category*/) {
        return 0;
    }
    virtual bool hasMidiProgramsChanged(int32_t /*channel*/) { return false; }
    virtual bool getMidiKeyName(int32_t /*channel*/, MidiKeyName* /*keyName*/) { return false; }

    virtual bool updateDisplay();
    virtual bool sizeWindow(int32_t width, int32_t height);
    virtual bool openFileSelector(VstFileSelect* select);
    virtual bool closeFileSelector(VstFileSelect* select);

    virtual int32_t getNextShellPlugin(char* /*name*/) { return 0; }

    virtual bool allocateArrangement(VstSpeakerArrangement** arrangement, int32_t channels);
    virtual bool deallocateArrangement(VstSpeakerArrangement** arrangement);
    virtual bool copySpeaker(VstSpeakerProperties* to, VstSpeakerProperties* from);
    virtual bool matchArrangement(VstSpeakerArrangement** to, VstSpeakerArrangement* from);

    virtual bool offlineRead(VstOfflineTask* task, VstOfflineOption option, bool readSource);
    virtual bool offlineWrite(VstOfflineTask* task, VstOfflineOption option);
    virtual bool offlineStart(VstAudioFile* files, int32_t numAudioFiles, int32_t numNewAudioFiles);
    virtual int32_t offlineGetCurrentPass();
    virtual int32_t offlineGetCurrentMetaPass();
    virtual bool offlineNotify(VstAudioFile* /*files*/, int32_t /*count*/, bool /*start*/) {
        return false;
    }
    virtual bool offlinePrepare(VstOfflineTask* /*task*/, int32_t /*count*/) { return false; }
    virtual bool offlineRun(VstOfflineTask* /*task*/, int32_t /*count*/) { return false; }
    virtual int32_t offlineGetNumPasses() { return 0; }
    virtual int32_t offlineGetNumMetaPasses() { return 0; }

    virtual void wantEvents(int32_t filter);
    virtual int32_t tempoAt(int32_t position);
    virtual int32_t getNumAutomatableParameters();
    virtual int32_t getParameterQuantization();

    virtual int32_t getNumCategories() { return 1; }
    virtual bool copyProgram(int32_t /*destination*/) { return false; }

    virtual bool needIdle();
    virtual AEffect* getPreviousPlug(int32_t input);
    virtual AEffect* getNextPlug(int32_t output);

    virtual void inputConnected(int32_t /*index*/, bool /*state*/) {}
    virtual void outputConnected(int32_t /*index*/, bool /*state*/) {}

    virtual int32_t willProcessReplacing();
    virtual void wantAsyncOperation(bool state) { setFlag(effFlagsExtIsAsync, state); }
    virtual void hasExternalBuffer(bool state) { setFlag(effFlagsExtHasBuffer, state); }

    virtual int32_t reportCurrentPosition() { return 0; }
    virtual float* reportDestinationBuffer() { return nullptr; }

    virtual void setOutputSamplerate(float sampleRate);
    virtual VstSpeakerArrangement* getInputSpeakerArrangement();
    virtual VstSpeakerArrangement* getOutputSpeakerArrangement();
    virtual void* openWindow(VstWindow* window);
    virtual bool closeWindow(VstWindow* window);

    virtual void setBlockSizeAndSampleRate(int32_t blockSize, float sampleRate) {
        this->blockSize = blockSize;
        this->sampleRate = sampleRate;
    }

    virtual bool getErrorText(char* /*text*/) { return false; }
    virtual void* getIcon() { return nullptr; }
    virtual bool setViewPosition(int32_t /*x*/, int32_t /*y*/) { return false; }
    virtual int32_t fxIdle() { return 0; }
    virtual bool keysRequired() { return false; }

    virtual bool getChunkFile(void* nativePath);

    // Hands events to the host; true only when the host answers exactly 1.
    bool sendVstEventsToHost(VstEvents* events);

private:
    intptr_t dispatchEditorKeys(int32_t opcode, int32_t index, intptr_t value, float opt);
};
