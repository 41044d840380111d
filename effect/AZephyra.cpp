#include "effect/AZephyra.h"

#include "dsp/CMultiEqualizer.h"
#include "host/CanDoStrings.h"

#include <cmath>
#include <cstring>

const char kDefaultBankFileName[] = "ZephyraDef.fxb";

namespace {

constexpr int32_t kDefaultBlockSize = 256;
constexpr uint32_t kDefaultSampleRate = 44100;
constexpr uint16_t kChannels = 2;
constexpr uint16_t kBytesPerFrame = kChannels * sizeof(float);
// Limits of what a host may set. Anything outside keeps the last valid setting: a rate
// of 0, a negative or non-finite one would make every filter design NaN, and an absurd
// block size would allocate without bound.
constexpr float kLowestSampleRate = 1.0f;
constexpr float kHighestSampleRate = 10000000.0f;
constexpr int32_t kLargestBlockSize = 1 << 20;

tWAVEFORMATEX floatStereoFormat(uint32_t samplesPerSecond) {
    tWAVEFORMATEX format{};
    format.wFormatTag = kWaveFormatIeeeFloat;
    format.nChannels = kChannels;
    format.nSamplesPerSec = samplesPerSecond;
    format.nAvgBytesPerSec = samplesPerSecond * kBytesPerFrame;
    format.nBlockAlign = kBytesPerFrame;
    format.wBitsPerSample = 32;
    format.cbSize = 0;
    return format;
}

void copyText(char* destination, const char* text) {
    std::strcpy(destination, text);
}

} // namespace

AZephyra::AZephyra(audioMasterCallback audioMaster, ZephyraEditorFactory makeEditor)
    : AudioEffectX(audioMaster, kNumPrograms, kNumParams), m_engine(new CMultiEqualizer),
      m_zephyraEditor(nullptr) {
    std::memset(m_pluginFolder, 0, sizeof(m_pluginFolder));
    m_unusedBlockCount = 256;
    curProgram = 0;
    m_fParam[kParamOnOff] = 1.0f;
    for (int index = kParamOutput; index < kNumParams; ++index) {
        m_fParam[index] = ValToNormalizeValue(
            index, static_cast<float>(AutomateParamMinMax_Tbl[index].defaultValue));
    }
    // dB for the two levels, the internal value for the others.
    const float displayDefaults[kNumDisplayValues] = {0.0f, 0.0f, 0.0f,    1000.0f,
                                                      1.0f, 0.0f, 1000.0f, 1.0f};
    for (int slot = 0; slot < kNumDisplayValues; ++slot) {
        m_fDispVal[slot] = displayDefaults[slot];
    }
    m_mediaFormat = floatStereoFormat(kDefaultSampleRate);
    m_blockSize = kDefaultBlockSize;

    setBlockSize(kDefaultBlockSize);
    setNumInputs(kChannels);
    setNumOutputs(kChannels);
    setUniqueID(kZephyraUniqueId);
    programsAreChunks(true);
    canMono(true);

    if (makeEditor) {
        m_zephyraEditor = makeEditor(this); // registers itself through setEditor
    }
    m_meterInL = m_meterInR = m_meterOutL = m_meterOutR = 0.0f;
    m_processCounter = 0xFFFF;
    resume();
}

AZephyra::~AZephyra() {
    delete m_engine;
}

ZephyraPanel* AZephyra::panel() {
    return m_zephyraEditor ? m_zephyraEditor->GetPanel() : nullptr;
}

void AZephyra::applyMediaType() {
    m_engine->SetMediaType(&m_mediaFormat, m_blockSize);
    for (std::vector<float>& scratch : m_doubleScratch) {
        scratch.assign(static_cast<size_t>(m_blockSize), 0.0f);
    }
}

// Kept: the base class's sample rate stays at its default, so getSampleRate() keeps
// answering 44100 whatever the host set.
void AZephyra::setSampleRate(float sampleRate) {
    if (!(sampleRate >= kLowestSampleRate && sampleRate <= kHighestSampleRate)) {
        return;
    }
    m_mediaFormat = floatStereoFormat(static_cast<uint32_t>(sampleRate));
    applyMediaType();
}

void AZephyra::setBlockSize(int32_t blockSize) {
    if (blockSize <= 0 || blockSize > kLargestBlockSize) {
        return;
    }
    m_blockSize = blockSize;
    applyMediaType();
}

void AZephyra::resume() {
    m_engine->set_Activate(0, true);
    m_engine->set_Activate(1, true);
    // Kept: every resume switches the equaliser on, whatever the user chose; the program
    // record and the host are not told.
    m_fParam[kParamOnOff] = 1.0f;
    if (ZephyraPanel* p = panel()) {
        p->UpdateControl(kParamOnOff, 1.0f);
    }
    AudioEffectX::resume();
}

void AZephyra::suspend() {
    m_engine->set_Activate(0, false);
    m_engine->set_Activate(1, false);
    m_fParam[kParamOnOff] = 0.0f;
    m_engine->Reset();
    if (ZephyraPanel* p = panel()) {
        p->UpdateControl(kParamOnOff, 0.0f);
    }
}

int32_t AZephyra::startProcess() {
    return m_engine->Reset() ? 1 : 0;
}

bool AZephyra::GetClip() {
    bool overLevel = false;
    m_engine->get_OverLevel(&overLevel);
    return overLevel;
}

bool AZephyra::getEffectName(char* name) {
    copyText(name, "Zephyra");
    return true;
}

bool AZephyra::getProductString(char* text) {
    copyText(text, "Zephyra");
    return true;
}

bool AZephyra::getVendorString(char* text) {
    copyText(text, "VELTRONA Co.,Ltd.");
    return true;
}

// Kept: "bypass" is answered yes although setBypass keeps the base's refusal.
int32_t AZephyra::canDo(char* text) {
    static const char* const refused[] = {
        PlugCanDos::canDoSendVstEvents,      PlugCanDos::canDoSendVstMidiEvent,
        PlugCanDos::canDoReceiveVstEvents,   PlugCanDos::canDoReceiveVstMidiEvent,
        PlugCanDos::canDoReceiveVstTimeInfo, PlugCanDos::canDoOffline,
        PlugCanDos::canDoMidiProgramNames,
    };
    if (!text) {
        return 0;
    }
    for (const char* capability : refused) {
        if (std::strcmp(text, capability) == 0) {
            return -1;
        }
    }
    return std::strcmp(text, PlugCanDos::canDoBypass) == 0 ? 1 : 0;
}
