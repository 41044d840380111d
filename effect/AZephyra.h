// The equaliser effect: owns the engine, the editor, the three program banks and the
// parameter state, and answers everything the host asks. Created by the module's entry
// point; the host frees it through effClose.
#pragma once

#include "base/CCriticalSection.h"
#include "base/CString.h"
#include "dsp/tWAVEFORMATEX.h"
#include "effect/AZephyraProgram.h"
#include "effect/BankFile.h"
#include "effect/HostQuirks.h"
#include "effect/RelaxedAtomic.h"
#include "effect/ZephyraEditorSeam.h"
#include "effect/ZephyraParameters.h"
#include "host/AudioEffectX.h"

#include <cstdint>
#include <string>
#include <vector>

class CMultiEqualizer;

constexpr int32_t kZephyraUniqueId = FourCharCode('V', 'e', 'E', 'Q');
extern const char kDefaultBankFileName[]; // "ZephyraDef.fxb"

class AZephyra : public AudioEffectX, public ZephyraEditorEffect {
public:
    explicit AZephyra(audioMasterCallback audioMaster, ZephyraEditorFactory makeEditor = nullptr);
    ~AZephyra() override;

    // --- Host configuration and audio
    void open() override;
    void suspend() override;
    void resume() override;
    void setSampleRate(float sampleRate) override;
    void setBlockSize(int32_t blockSize) override;
    void processReplacing(float** inputs, float** outputs, int32_t sampleFrames) override;
    void processDoubleReplacing(double** inputs, double** outputs, int32_t sampleFrames) override;
    int32_t startProcess() override;

    // --- Parameters
    void setParameter(int32_t index, float value) override;
    float getParameter(int32_t index) override;
    void getParameterLabel(int32_t index, char* label) override;
    void getParameterDisplay(int32_t index, char* text) override;
    void getParameterName(int32_t index, char* text) override;
    bool getParameterProperties(int32_t index, VstParameterProperties* properties) override;
    // A control on the panel moved: store and apply, then tell the host.
    void setParameterFormUI(int index, float value) override;
    // A value typed in display units: convert, store, apply, refresh the panel, tell the host.
    void setParameterFromDiaplay(int index, float displayValue) override;
    // The value a read-out shows, with a rounding bias for fields that cut to one decimal.
    float getParameterDisplayVal(int index) override;

    // --- Programs and chunks
    void setProgram(int32_t program) override;
    int32_t getProgram() override { return AudioEffectX::getProgram(); }
    void setProgramName(char* name) override;
    void getProgramName(char* name) override;
    bool getProgramNameIndexed(int32_t category, int32_t index, char* text) override;
    int32_t getChunk(void** data, bool isPreset) override;
    int32_t setChunk(void* data, int32_t byteSize, bool isPreset) override;
    bool IsProgramChanged() override;
    void ProgramToInitial() override;
    void ProgramToAllInitial();
    void ProgramToFactory() override;
    void ProgramToAllFactory() override;
    void CopyPgFrom(int source) override;
    void SetFactoryProgram();
    // Stores the current program as program destination under the name and writes the
    // bank to the user's default bank file.
    bool SaveProgram(int destination, CString name) override;
    // Imports the legacy program list into the current bank.
    void Convert();
    // The import from a given list; each program file is programPathPrefix + name + ".PGM"
    // (Convert uses the fixed legacy locations).
    void ConvertFrom(const char* listPath, const char* programPathPrefix);
    // The program names as stored (Shift-JIS bytes), for the editor's menus.
    const char* GetProgramNameBytes(int program) const override;

    // --- Identity
    bool getEffectName(char* name) override;
    bool getVendorString(char* text) override;
    bool getProductString(char* text) override;
    int32_t getVendorVersion() override { return 1000; }
    int32_t canDo(char* text) override;
    VstPlugCategory getPlugCategory() override { return kPlugCategEffect; }

    // --- What the editor polls
    void GetVU(float* inL, float* inR, float* outL, float* outR) override;
    bool GetClip();
    // Advances once per processed block (wrapping at 16 bits).
    uint16_t GetProcessCounter() const override { return m_processCounter.load(); }
    CMultiEqualizer* GetEngine() { return m_engine; }
    // The folder the factory bank is read from, ending in "/".
    const char* GetPluginFolder() const { return m_pluginFolder; }

private:
    ZephyraPanel* panel();
    void applyValue(int index, float value);
    void pushToEngine(int index, float value);
    void storeNormalised(int index, float value);
    void refreshDisplayValues();
    void loadProgramRecord(const ZephyraProgramRecord& source);
    void afterProgramRevert();
    void requestHostDisplayUpdate();
    void findPluginFolder();
    void recogniseHost();
    bool writeBankFile(const std::string& path);
    void applyMediaType();

    Relaxed<uint16_t> m_processCounter;
    AZephyraProgram m_currentBank;
    AZephyraProgram m_initialBank;
    AZephyraProgram m_factoryBank;
    char m_pluginFolder[2048];
    CMultiEqualizer* m_engine;
    int64_t m_unusedBlockCount; // set to 256 and never read, as it always was
    Relaxed<float> m_fParam[kNumParams];
    Relaxed<float> m_fDispVal[kNumDisplayValues];
    tWAVEFORMATEX m_mediaFormat;
    int32_t m_blockSize;
    float m_meterInL, m_meterInR, m_meterOutL, m_meterOutR;
    CCriticalSection m_lock;
    ZephyraEditorBase* m_zephyraEditor;
    // Set once, at effOpen, from the host's own strings.
    ParameterPropertiesStyle m_propertiesStyle = ParameterPropertiesStyle::kDisplayRanges;
    // Conversion buffers of the double-precision path, sized with the block size so the
    // audio thread never allocates.
    std::vector<float> m_doubleScratch[4];
    // What getChunk hands the host: a copy of the current bank taken at the call, so the
    // host reads memory that automation on the audio thread does not write. It stays
    // valid until the next getChunk.
    alignas(ZephyraProgramRecord) char m_chunkImage[AZephyraProgram::kBytes];
};
