// Our own declarations of the VST 2.4 binary interface (64-bit Linux layout), written
// from the published facts: records, opcodes, flags. Every offset a host relies on is
// pinned with static_assert at the end of the file.
#pragma once

#include <cstddef>
#include <cstdint>

struct AEffect;

using audioMasterCallback = intptr_t (*)(AEffect* effect, int32_t opcode, int32_t index,
                                         intptr_t value, void* ptr, float opt);
using AEffectDispatcherProc = intptr_t (*)(AEffect* effect, int32_t opcode, int32_t index,
                                           intptr_t value, void* ptr, float opt);
using AEffectProcessProc = void (*)(AEffect* effect, float** inputs, float** outputs,
                                    int32_t sampleFrames);
using AEffectProcessDoubleProc = void (*)(AEffect* effect, double** inputs, double** outputs,
                                          int32_t sampleFrames);
using AEffectSetParameterProc = void (*)(AEffect* effect, int32_t index, float value);
using AEffectGetParameterProc = float (*)(AEffect* effect, int32_t index);

// Builds a four-character code the way the interface stores them: first letter most
// significant.
constexpr int32_t FourCharCode(char a, char b, char c, char d) {
    return static_cast<int32_t>((static_cast<uint32_t>(static_cast<uint8_t>(a)) << 24) |
                                (static_cast<uint32_t>(static_cast<uint8_t>(b)) << 16) |
                                (static_cast<uint32_t>(static_cast<uint8_t>(c)) << 8) |
                                static_cast<uint32_t>(static_cast<uint8_t>(d)));
}

constexpr int32_t kEffectMagic = FourCharCode('V', 's', 't', 'P');

// The record a plug-in hands to its host.
struct AEffect {
    int32_t magic;
    AEffectDispatcherProc dispatcher;
    AEffectProcessProc process; // deprecated accumulating process
    AEffectSetParameterProc setParameter;
    AEffectGetParameterProc getParameter;
    int32_t numPrograms;
    int32_t numParams;
    int32_t numInputs;
    int32_t numOutputs;
    int32_t flags;
    intptr_t resvd1;
    intptr_t resvd2;
    int32_t initialDelay;
    int32_t realQualities;
    int32_t offQualities;
    float ioRatio;
    void* object;
    void* user;
    int32_t uniqueID;
    int32_t version;
    AEffectProcessProc processReplacing;
    AEffectProcessDoubleProc processDoubleReplacing;
    char future[56];
};

enum VstAEffectFlags : int32_t {
    effFlagsHasEditor = 1,
    effFlagsHasClip = 2,
    effFlagsHasVu = 4,
    effFlagsCanMono = 8,
    effFlagsCanReplacing = 16,
    effFlagsProgramChunks = 32,
    effFlagsIsSynth = 256,
    effFlagsNoSoundInStop = 512,
    effFlagsExtIsAsync = 0x400,
    effFlagsExtHasBuffer = 0x800,
    effFlagsCanDoubleReplacing = 4096,
};

// Requests from host to plug-in (the dispatcher's opcode).
enum VstDispatcherOpcode : int32_t {
    effOpen = 0,
    effClose,
    effSetProgram,
    effGetProgram,
    effSetProgramName,
    effGetProgramName,
    effGetParamLabel,
    effGetParamDisplay,
    effGetParamName,
    effGetVu,
    effSetSampleRate,
    effSetBlockSize,
    effMainsChanged,
    effEditGetRect,
    effEditOpen,
    effEditClose,
    effEditDraw,
    effEditMouse,
    effEditKey,
    effEditIdle,
    effEditTop,
    effEditSleep,
    effIdentify,
    effGetChunk,
    effSetChunk,
    effProcessEvents,
    effCanBeAutomated,
    effString2Parameter,
    effGetNumProgramCategories,
    effGetProgramNameIndexed,
    effCopyProgram,
    effConnectInput,
    effConnectOutput,
    effGetInputProperties,
    effGetOutputProperties,
    effGetPlugCategory,
    effGetCurrentPosition,
    effGetDestinationBuffer,
    effOfflineNotify,
    effOfflinePrepare,
    effOfflineRun,
    effProcessVarIo,
    effSetSpeakerArrangement,
    effSetBlockSizeAndSampleRate,
    effSetBypass,
    effGetEffectName,
    effGetErrorText,
    effGetVendorString,
    effGetProductString,
    effGetVendorVersion,
    effVendorSpecific,
    effCanDo,
    effGetTailSize,
    effIdle,
    effGetIcon,
    effSetViewPosition,
    effGetParameterProperties,
    effKeysRequired,
    effGetVstVersion,
    effEditKeyDown,
    effEditKeyUp,
    effSetEditKnobMode,
    effGetMidiProgramName,
    effGetCurrentMidiProgram,
    effGetMidiProgramCategory,
    effHasMidiProgramsChanged,
    effGetMidiKeyName,
    effBeginSetProgram,
    effEndSetProgram,
    effGetSpeakerArrangement,
    effShellGetNextPlugin,
    effStartProcess,
    effStopProcess,
    effSetTotalSampleToProcess,
    effSetPanLaw,
    effBeginLoadBank,
    effBeginLoadProgram,
    effSetProcessPrecision,
    effGetNumMidiInputChannels,
    effGetNumMidiOutputChannels,
};
static_assert(effSetChunk == 24 && effProcessEvents == 25 && effGetVstVersion == 58 &&
              effGetNumMidiOutputChannels == 79);

// Requests from plug-in to host (the call-back's opcode).
enum VstHostOpcode : int32_t {
    audioMasterAutomate = 0,
    audioMasterVersion = 1,
    audioMasterCurrentId = 2,
    audioMasterIdle = 3,
    audioMasterPinConnected = 4,
    audioMasterWantMidi = 6,
    audioMasterGetTime = 7,
    audioMasterProcessEvents = 8,
    audioMasterTempoAt = 10,
    audioMasterGetNumAutomatableParameters = 11,
    audioMasterGetParameterQuantization = 12,
    audioMasterIOChanged = 13,
    audioMasterNeedIdle = 14,
    audioMasterSizeWindow = 15,
    audioMasterGetSampleRate = 16,
    audioMasterGetBlockSize = 17,
    audioMasterGetInputLatency = 18,
    audioMasterGetOutputLatency = 19,
    audioMasterGetPreviousPlug = 20,
    audioMasterGetNextPlug = 21,
    audioMasterWillReplaceOrAccumulate = 22,
    audioMasterGetCurrentProcessLevel = 23,
    audioMasterGetAutomationState = 24,
    audioMasterOfflineStart = 25,
    audioMasterOfflineRead = 26,
    audioMasterOfflineWrite = 27,
    audioMasterOfflineGetCurrentPass = 28,
    audioMasterOfflineGetCurrentMetaPass = 29,
    audioMasterSetOutputSampleRate = 30,
    audioMasterGetOutputSpeakerArrangement = 31,
    audioMasterGetVendorString = 32,
    audioMasterGetProductString = 33,
    audioMasterGetVendorVersion = 34,
    audioMasterVendorSpecific = 35,
    audioMasterCanDo = 37,
    audioMasterGetLanguage = 38,
    audioMasterOpenWindow = 39,
    audioMasterCloseWindow = 40,
    audioMasterGetDirectory = 41,
    audioMasterUpdateDisplay = 42,
    audioMasterBeginEdit = 43,
    audioMasterEndEdit = 44,
    audioMasterOpenFileSelector = 45,
    audioMasterCloseFileSelector = 46,
    audioMasterEditFile = 47,
    audioMasterGetChunkFile = 48,
    audioMasterGetInputSpeakerArrangement = 49,
};

enum VstPlugCategory : int32_t {
    kPlugCategUnknown = 0,
    kPlugCategEffect = 1,
    kPlugCategSynth = 2,
    kPlugCategAnalysis = 3,
    kPlugCategMastering = 4,
    kPlugCategSpacializer = 5,
    kPlugCategRoomFx = 6,
    kPlugSurroundFx = 7,
    kPlugCategRestoration = 8,
    kPlugCategOfflineProcess = 9,
    kPlugCategShell = 10,
    kPlugCategGenerator = 11,
};
static_assert(kPlugCategShell == 10 && kPlugCategGenerator == 11);

// A window rectangle in the host's 16-bit coordinates.
struct ERect {
    int16_t top;
    int16_t left;
    int16_t bottom;
    int16_t right;
};

enum VstParameterFlags : int32_t {
    kVstParameterIsSwitch = 1,
    kVstParameterUsesIntegerMinMax = 2,
    kVstParameterUsesFloatStep = 4,
    kVstParameterUsesIntStep = 8,
    kVstParameterSupportsDisplayIndex = 16,
    kVstParameterSupportsDisplayCategory = 32,
    kVstParameterCanRamp = 64,
};

struct VstParameterProperties {
    float stepFloat;
    float smallStepFloat;
    float largeStepFloat;
    char label[64];
    int32_t flags;
    int32_t minInteger;
    int32_t maxInteger;
    int32_t stepInteger;
    int32_t largeStepInteger;
    char shortLabel[8];
    int16_t displayIndex;
    int16_t category;
    int16_t numParametersInCategory;
    int16_t reserved;
    char categoryLabel[24];
    char future[16];
};

struct VstKeyCode {
    int32_t character;
    uint8_t virt;
    uint8_t modifier;
};

struct VstSpeakerProperties {
    float azimuth;
    float elevation;
    float radius;
    float reserved;
    char name[64];
    int32_t type;
    char future[28];
};

struct VstSpeakerArrangement {
    int32_t type;
    int32_t numChannels;
    VstSpeakerProperties speakers[8]; // allocated for numChannels entries
};

struct VstPinProperties {
    char label[64];
    int32_t flags;
    int32_t arrangementType;
    char shortLabel[8];
    char future[48];
};

struct VstTimeInfo {
    double samplePos;
    double sampleRate;
    double nanoSeconds;
    double ppqPos;
    double tempo;
    double barStartPos;
    double cycleStartPos;
    double cycleEndPos;
    int32_t timeSigNumerator;
    int32_t timeSigDenominator;
    int32_t smpteOffset;
    int32_t smpteFrameRate;
    int32_t samplesToNextClock;
    int32_t flags;
};

// Which fields of a VstTimeInfo the host filled in, and the transport state.
enum VstTimeInfoFlags : int32_t {
    kVstTransportChanged = 1,
    kVstTransportPlaying = 1 << 1,
    kVstTransportCycleActive = 1 << 2,
    kVstTransportRecording = 1 << 3,
    kVstAutomationWriting = 1 << 6,
    kVstAutomationReading = 1 << 7,
    kVstNanosValid = 1 << 8,
    kVstPpqPosValid = 1 << 9,
    kVstTempoValid = 1 << 10,
    kVstBarsValid = 1 << 11,
    kVstCyclePosValid = 1 << 12,
    kVstTimeSigValid = 1 << 13,
    kVstSmpteValid = 1 << 14,
    kVstClockValid = 1 << 15,
};
static_assert(kVstNanosValid == 256 && kVstTimeSigValid == 8192 && kVstClockValid == 32768);

struct VstEvent;
struct VstEvents {
    int32_t numEvents;
    intptr_t reserved;
    VstEvent* events[2]; // numEvents entries in practice
};

// Records this plug-in only passes through.
struct VstVariableIo;
struct VstAudioFile;
struct VstOfflineTask;
struct VstFileSelect;
struct VstWindow;
struct VstPatchChunkInfo;
struct MidiProgramName;
struct MidiProgramCategory;
struct MidiKeyName;
using VstOfflineOption = int32_t;

static_assert(sizeof(void*) == 8, "the declarations describe the 64-bit layout");

static_assert(offsetof(AEffect, magic) == 0);
static_assert(offsetof(AEffect, dispatcher) == 8);
static_assert(offsetof(AEffect, process) == 16);
static_assert(offsetof(AEffect, setParameter) == 24);
static_assert(offsetof(AEffect, getParameter) == 32);
static_assert(offsetof(AEffect, numPrograms) == 40);
static_assert(offsetof(AEffect, numParams) == 44);
static_assert(offsetof(AEffect, numInputs) == 48);
static_assert(offsetof(AEffect, numOutputs) == 52);
static_assert(offsetof(AEffect, flags) == 56);
static_assert(offsetof(AEffect, resvd1) == 64);
static_assert(offsetof(AEffect, resvd2) == 72);
static_assert(offsetof(AEffect, initialDelay) == 80);
static_assert(offsetof(AEffect, realQualities) == 84);
static_assert(offsetof(AEffect, offQualities) == 88);
static_assert(offsetof(AEffect, ioRatio) == 92);
static_assert(offsetof(AEffect, object) == 96);
static_assert(offsetof(AEffect, user) == 104);
static_assert(offsetof(AEffect, uniqueID) == 112);
static_assert(offsetof(AEffect, version) == 116);
static_assert(offsetof(AEffect, processReplacing) == 120);
static_assert(offsetof(AEffect, processDoubleReplacing) == 128);
static_assert(offsetof(AEffect, future) == 136);
static_assert(sizeof(AEffect) == 192);

static_assert(offsetof(ERect, top) == 0 && offsetof(ERect, left) == 2);
static_assert(offsetof(ERect, bottom) == 4 && offsetof(ERect, right) == 6);
static_assert(sizeof(ERect) == 8);

static_assert(offsetof(VstParameterProperties, stepFloat) == 0);
static_assert(offsetof(VstParameterProperties, smallStepFloat) == 4);
static_assert(offsetof(VstParameterProperties, largeStepFloat) == 8);
static_assert(offsetof(VstParameterProperties, label) == 12);
static_assert(offsetof(VstParameterProperties, flags) == 76);
static_assert(offsetof(VstParameterProperties, minInteger) == 80);
static_assert(offsetof(VstParameterProperties, maxInteger) == 84);
static_assert(offsetof(VstParameterProperties, stepInteger) == 88);
static_assert(offsetof(VstParameterProperties, largeStepInteger) == 92);
static_assert(offsetof(VstParameterProperties, shortLabel) == 96);
static_assert(offsetof(VstParameterProperties, displayIndex) == 104);
static_assert(offsetof(VstParameterProperties, category) == 106);
static_assert(offsetof(VstParameterProperties, numParametersInCategory) == 108);
static_assert(offsetof(VstParameterProperties, reserved) == 110);
static_assert(offsetof(VstParameterProperties, categoryLabel) == 112);
static_assert(offsetof(VstParameterProperties, future) == 136);
static_assert(sizeof(VstParameterProperties) == 152);

static_assert(offsetof(VstKeyCode, character) == 0);
static_assert(offsetof(VstKeyCode, virt) == 4 && offsetof(VstKeyCode, modifier) == 5);
static_assert(sizeof(VstKeyCode) == 8);

static_assert(offsetof(VstSpeakerProperties, azimuth) == 0);
static_assert(offsetof(VstSpeakerProperties, elevation) == 4);
static_assert(offsetof(VstSpeakerProperties, radius) == 8);
static_assert(offsetof(VstSpeakerProperties, reserved) == 12);
static_assert(offsetof(VstSpeakerProperties, name) == 16);
static_assert(offsetof(VstSpeakerProperties, type) == 80);
static_assert(offsetof(VstSpeakerProperties, future) == 84);
static_assert(sizeof(VstSpeakerProperties) == 112);

static_assert(offsetof(VstSpeakerArrangement, type) == 0);
static_assert(offsetof(VstSpeakerArrangement, numChannels) == 4);
static_assert(offsetof(VstSpeakerArrangement, speakers) == 8);

static_assert(offsetof(VstPinProperties, label) == 0);
static_assert(offsetof(VstPinProperties, flags) == 64);
static_assert(offsetof(VstPinProperties, arrangementType) == 68);
static_assert(offsetof(VstPinProperties, shortLabel) == 72);
static_assert(offsetof(VstPinProperties, future) == 80);
static_assert(sizeof(VstPinProperties) == 128);

static_assert(offsetof(VstTimeInfo, samplePos) == 0);
static_assert(offsetof(VstTimeInfo, sampleRate) == 8);
static_assert(offsetof(VstTimeInfo, cycleEndPos) == 56);
static_assert(offsetof(VstTimeInfo, timeSigNumerator) == 64);
static_assert(offsetof(VstTimeInfo, flags) == 84);

static_assert(offsetof(VstEvents, numEvents) == 0);
static_assert(offsetof(VstEvents, reserved) == 8);
static_assert(offsetof(VstEvents, events) == 16);
