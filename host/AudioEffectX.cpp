#include "host/AudioEffectX.h"

#include "host/CanDoStrings.h"

#include <cstdlib>
#include <cstring>

namespace {

intptr_t fromBool(bool value) {
    return value ? 1 : 0;
}

// int(opt) as the key record takes it; a value no int can hold, NaN included, counts as 0
// rather than being undefined.
int32_t truncatedToInt(float value) {
    return value > -2147483648.0f && value < 2147483648.0f ? static_cast<int32_t>(value) : 0;
}

} // namespace

intptr_t AudioEffectX::dispatcher(int32_t opcode, int32_t index, intptr_t value, void* ptr,
                                  float opt) {
    const int32_t value32 = static_cast<int32_t>(value);
    switch (opcode) {
    case effProcessEvents:
        return processEvents(static_cast<VstEvents*>(ptr));
    case effCanBeAutomated:
        return fromBool(canParameterBeAutomated(index));
    case effString2Parameter:
        return fromBool(string2parameter(index, static_cast<char*>(ptr)));
    case effGetNumProgramCategories:
        return getNumCategories();
    case effGetProgramNameIndexed:
        return fromBool(getProgramNameIndexed(value32, index, static_cast<char*>(ptr)));
    case effCopyProgram:
        return fromBool(copyProgram(index));
    case effConnectInput:
        inputConnected(index, value != 0);
        return 1;
    case effConnectOutput:
        outputConnected(index, value != 0);
        return 1;
    case effGetInputProperties:
        return fromBool(getInputProperties(index, static_cast<VstPinProperties*>(ptr)));
    case effGetOutputProperties:
        return fromBool(getOutputProperties(index, static_cast<VstPinProperties*>(ptr)));
    case effGetPlugCategory:
        return static_cast<uint32_t>(getPlugCategory());
    case effGetCurrentPosition:
        return reportCurrentPosition();
    case effGetDestinationBuffer:
        return reinterpret_cast<intptr_t>(reportDestinationBuffer());
    case effOfflineNotify:
        return fromBool(offlineNotify(static_cast<VstAudioFile*>(ptr), value32, index != 0));
    case effOfflinePrepare:
        return fromBool(offlinePrepare(static_cast<VstOfflineTask*>(ptr), value32));
    case effOfflineRun:
        return fromBool(offlineRun(static_cast<VstOfflineTask*>(ptr), value32));
    case effProcessVarIo:
        return fromBool(processVariableIo(static_cast<VstVariableIo*>(ptr)));
    case effSetSpeakerArrangement:
        return fromBool(setSpeakerArrangement(reinterpret_cast<VstSpeakerArrangement*>(value),
                                              static_cast<VstSpeakerArrangement*>(ptr)));
    case effSetBlockSizeAndSampleRate:
        setBlockSizeAndSampleRate(value32, opt);
        return 1;
    case effSetBypass:
        return fromBool(setBypass(value != 0));
    case effGetEffectName:
        return fromBool(getEffectName(static_cast<char*>(ptr)));
    case effGetErrorText:
        return fromBool(getErrorText(static_cast<char*>(ptr)));
    case effGetVendorString:
        return fromBool(getVendorString(static_cast<char*>(ptr)));
    case effGetProductString:
        return fromBool(getProductString(static_cast<char*>(ptr)));
    case effGetVendorVersion:
        return getVendorVersion();
    case effVendorSpecific:
        return vendorSpecific(index, value, ptr, opt);
    case effCanDo:
        return canDo(static_cast<char*>(ptr));
    case effGetTailSize:
        return getGetTailSize();
    case effIdle:
        return fxIdle();
    case effGetIcon:
        return reinterpret_cast<intptr_t>(getIcon());
    case effSetViewPosition:
        return fromBool(setViewPosition(index, value32));
    case effGetParameterProperties:
        return fromBool(getParameterProperties(index, static_cast<VstParameterProperties*>(ptr)));
    case effKeysRequired:
        // The request asks the inverse question: 1 means "keys are not needed".
        return fromBool(!keysRequired());
    case effGetVstVersion:
        return getVstVersion();
    case effEditKeyDown:
    case effEditKeyUp:
    case effSetEditKnobMode:
        return dispatchEditorKeys(opcode, index, value, opt);
    case effGetMidiProgramName:
        return getMidiProgramName(index, static_cast<MidiProgramName*>(ptr));
    case effGetCurrentMidiProgram:
        return getCurrentMidiProgram(index, static_cast<MidiProgramName*>(ptr));
    case effGetMidiProgramCategory:
        return getMidiProgramCategory(index, static_cast<MidiProgramCategory*>(ptr));
    case effHasMidiProgramsChanged:
        return fromBool(hasMidiProgramsChanged(index));
    case effGetMidiKeyName:
        return fromBool(getMidiKeyName(index, static_cast<MidiKeyName*>(ptr)));
    case effBeginSetProgram:
        return fromBool(beginSetProgram());
    case effEndSetProgram:
        return fromBool(endSetProgram());
    case effGetSpeakerArrangement:
        return fromBool(getSpeakerArrangement(reinterpret_cast<VstSpeakerArrangement**>(value),
                                              static_cast<VstSpeakerArrangement**>(ptr)));
    case effShellGetNextPlugin:
        return getNextShellPlugin(static_cast<char*>(ptr));
    case effStartProcess:
        return startProcess();
    case effStopProcess:
        return stopProcess();
    case effSetTotalSampleToProcess:
        return setTotalSampleToProcess(value32);
    case effSetPanLaw:
        return fromBool(setPanLaw(value32, opt));
    case effBeginLoadBank:
        return beginLoadBank(static_cast<VstPatchChunkInfo*>(ptr));
    case effBeginLoadProgram:
        return beginLoadProgram(static_cast<VstPatchChunkInfo*>(ptr));
    case effSetProcessPrecision:
        return fromBool(setProcessPrecision(value32));
    case effGetNumMidiInputChannels:
        return getNumMidiInputChannels();
    case effGetNumMidiOutputChannels:
        return getNumMidiOutputChannels();
    default:
        return AudioEffect::dispatcher(opcode, index, value, ptr, opt);
    }
}

intptr_t AudioEffectX::dispatchEditorKeys(int32_t opcode, int32_t index, intptr_t value,
                                          float opt) {
    if (!editor) {
        return 0;
    }
    if (opcode == effSetEditKnobMode) {
        return fromBool(editor->setKnobMode(static_cast<int32_t>(value)));
    }
    VstKeyCode key{};
    key.character = index;
    key.virt = static_cast<uint8_t>(value);
    key.modifier = static_cast<uint8_t>(truncatedToInt(opt));
    return fromBool(opcode == effEditKeyDown ? editor->onKeyDown(key) : editor->onKeyUp(key));
}

void AudioEffectX::resume() {
    if ((cEffect.flags & effFlagsIsSynth) != 0 ||
        canDo(const_cast<char*>(PlugCanDos::canDoReceiveVstMidiEvent)) == 1) {
        wantEvents(1);
    }
}

bool AudioEffectX::getSpeakerArrangement(VstSpeakerArrangement** input,
                                         VstSpeakerArrangement** output) {
    *input = nullptr;
    *output = nullptr;
    return false;
}

VstPlugCategory AudioEffectX::getPlugCategory() {
    return (cEffect.flags & effFlagsIsSynth) != 0 ? kPlugCategSynth : kPlugCategUnknown;
}

// --- Speaker arrangements ------------------------------------------------------------

namespace {

constexpr size_t arrangementBytes(int32_t channels) {
    return offsetof(VstSpeakerArrangement, speakers) +
           sizeof(VstSpeakerProperties) * static_cast<size_t>(channels);
}

} // namespace

bool AudioEffectX::allocateArrangement(VstSpeakerArrangement** arrangement, int32_t channels) {
    deallocateArrangement(arrangement);
    if (channels < 0) {
        return false;
    }
    auto* fresh = static_cast<VstSpeakerArrangement*>(std::calloc(1, arrangementBytes(channels)));
    if (!fresh) {
        return false;
    }
    fresh->numChannels = channels;
    *arrangement = fresh;
    return true;
}

bool AudioEffectX::deallocateArrangement(VstSpeakerArrangement** arrangement) {
    if (*arrangement) {
        std::free(*arrangement);
        *arrangement = nullptr;
    }
    return true;
}

bool AudioEffectX::copySpeaker(VstSpeakerProperties* to, VstSpeakerProperties* from) {
    if (!to || !from) {
        return false;
    }
    to->azimuth = from->azimuth;
    to->elevation = from->elevation;
    to->radius = from->radius;
    to->reserved = from->reserved;
    std::memcpy(to->name, from->name, sizeof(to->name));
    to->type = from->type;
    std::memcpy(to->future, from->future, sizeof(to->future));
    return true;
}

bool AudioEffectX::matchArrangement(VstSpeakerArrangement** to, VstSpeakerArrangement* from) {
    if (!from || !allocateArrangement(to, from->numChannels)) {
        return false;
    }
    (*to)->type = from->type;
    // The record declares a fixed array but is allocated for numChannels speakers.
    VstSpeakerProperties* target = (*to)->speakers;
    VstSpeakerProperties* source = from->speakers;
    for (int32_t i = 0; i < from->numChannels; ++i) {
        copySpeaker(target + i, source + i);
    }
    return true;
}
