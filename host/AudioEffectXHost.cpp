// The call-backs of the extended base: each packs its arguments as the host expects
// them. Without a host call-back every one answers 0, false or null.
#include "host/AudioEffectX.h"

bool AudioEffectX::beginEdit(int32_t index) {
    return callHost(audioMasterBeginEdit, index) != 0;
}

bool AudioEffectX::endEdit(int32_t index) {
    return callHost(audioMasterEndEdit, index) != 0;
}

bool AudioEffectX::ioChanged() {
    return callHost(audioMasterIOChanged) != 0;
}

double AudioEffectX::updateSampleRate() {
    const intptr_t answer = callHost(audioMasterGetSampleRate);
    if (answer > 0) {
        sampleRate = static_cast<float>(answer);
    }
    return sampleRate;
}

int32_t AudioEffectX::updateBlockSize() {
    const intptr_t answer = callHost(audioMasterGetBlockSize);
    if (answer > 0) {
        blockSize = static_cast<int32_t>(answer);
    }
    return blockSize;
}

int32_t AudioEffectX::getInputLatency() {
    return static_cast<int32_t>(callHost(audioMasterGetInputLatency));
}

int32_t AudioEffectX::getOutputLatency() {
    return static_cast<int32_t>(callHost(audioMasterGetOutputLatency));
}

VstTimeInfo* AudioEffectX::getTimeInfo(int32_t filter) {
    return reinterpret_cast<VstTimeInfo*>(callHost(audioMasterGetTime, 0, filter));
}

int32_t AudioEffectX::getCurrentProcessLevel() {
    return static_cast<int32_t>(callHost(audioMasterGetCurrentProcessLevel));
}

int32_t AudioEffectX::getAutomationState() {
    return static_cast<int32_t>(callHost(audioMasterGetAutomationState));
}

bool AudioEffectX::sendVstEventsToHost(VstEvents* events) {
    return callHost(audioMasterProcessEvents, 0, 0, events) == 1;
}

bool AudioEffectX::getHostVendorString(char* text) {
    return callHost(audioMasterGetVendorString, 0, 0, text) != 0;
}

bool AudioEffectX::getHostProductString(char* text) {
    return callHost(audioMasterGetProductString, 0, 0, text) != 0;
}

int32_t AudioEffectX::getHostVendorVersion() {
    return static_cast<int32_t>(callHost(audioMasterGetVendorVersion));
}

intptr_t AudioEffectX::hostVendorSpecific(int32_t lArg, intptr_t lArg2, void* ptrArg, float fArg) {
    return callHost(audioMasterVendorSpecific, lArg, lArg2, ptrArg, fArg);
}

// Kept as it always was: any non-zero answer counts as "yes", so a host that answers -1
// ("no") still gets 1 here.
int32_t AudioEffectX::canHostDo(char* text) {
    return callHost(audioMasterCanDo, 0, 0, text) != 0 ? 1 : 0;
}

int32_t AudioEffectX::getHostLanguage() {
    return static_cast<int32_t>(callHost(audioMasterGetLanguage));
}

void* AudioEffectX::getDirectory() {
    return reinterpret_cast<void*>(callHost(audioMasterGetDirectory));
}

bool AudioEffectX::updateDisplay() {
    return callHost(audioMasterUpdateDisplay) != 0;
}

bool AudioEffectX::sizeWindow(int32_t width, int32_t height) {
    return callHost(audioMasterSizeWindow, width, height) != 0;
}

bool AudioEffectX::openFileSelector(VstFileSelect* select) {
    return select && callHost(audioMasterOpenFileSelector, 0, 0, select) != 0;
}

bool AudioEffectX::closeFileSelector(VstFileSelect* select) {
    return select && callHost(audioMasterCloseFileSelector, 0, 0, select) != 0;
}

bool AudioEffectX::getChunkFile(void* nativePath) {
    return nativePath && callHost(audioMasterGetChunkFile, 0, 0, nativePath) != 0;
}

bool AudioEffectX::offlineStart(VstAudioFile* files, int32_t numAudioFiles,
                                int32_t numNewAudioFiles) {
    return callHost(audioMasterOfflineStart, numNewAudioFiles, numAudioFiles, files) != 0;
}

bool AudioEffectX::offlineRead(VstOfflineTask* task, VstOfflineOption option, bool readSource) {
    return callHost(audioMasterOfflineRead, readSource, option, task) != 0;
}

bool AudioEffectX::offlineWrite(VstOfflineTask* task, VstOfflineOption option) {
    return callHost(audioMasterOfflineWrite, 0, option, task) != 0;
}

int32_t AudioEffectX::offlineGetCurrentPass() {
    return callHost(audioMasterOfflineGetCurrentPass) != 0 ? 1 : 0;
}

int32_t AudioEffectX::offlineGetCurrentMetaPass() {
    return callHost(audioMasterOfflineGetCurrentMetaPass) != 0 ? 1 : 0;
}

void AudioEffectX::wantEvents(int32_t filter) {
    callHost(audioMasterWantMidi, 0, filter);
}

int32_t AudioEffectX::tempoAt(int32_t position) {
    return static_cast<int32_t>(callHost(audioMasterTempoAt, 0, position));
}

int32_t AudioEffectX::getNumAutomatableParameters() {
    return static_cast<int32_t>(callHost(audioMasterGetNumAutomatableParameters));
}

int32_t AudioEffectX::getParameterQuantization() {
    return static_cast<int32_t>(callHost(audioMasterGetParameterQuantization));
}

bool AudioEffectX::needIdle() {
    return callHost(audioMasterNeedIdle) != 0;
}

// The pin argument has never been passed on to the host.
AEffect* AudioEffectX::getPreviousPlug(int32_t /*input*/) {
    return reinterpret_cast<AEffect*>(callHost(audioMasterGetPreviousPlug));
}

AEffect* AudioEffectX::getNextPlug(int32_t /*output*/) {
    return reinterpret_cast<AEffect*>(callHost(audioMasterGetNextPlug));
}

int32_t AudioEffectX::willProcessReplacing() {
    return static_cast<int32_t>(callHost(audioMasterWillReplaceOrAccumulate));
}

void AudioEffectX::setOutputSamplerate(float sampleRate) {
    callHost(audioMasterSetOutputSampleRate, 0, 0, nullptr, sampleRate);
}

VstSpeakerArrangement* AudioEffectX::getInputSpeakerArrangement() {
    return reinterpret_cast<VstSpeakerArrangement*>(
        callHost(audioMasterGetInputSpeakerArrangement));
}

VstSpeakerArrangement* AudioEffectX::getOutputSpeakerArrangement() {
    return reinterpret_cast<VstSpeakerArrangement*>(
        callHost(audioMasterGetOutputSpeakerArrangement));
}

void* AudioEffectX::openWindow(VstWindow* window) {
    return reinterpret_cast<void*>(callHost(audioMasterOpenWindow, 0, 0, window));
}

bool AudioEffectX::closeWindow(VstWindow* window) {
    return callHost(audioMasterCloseWindow, 0, 0, window) != 0;
}
