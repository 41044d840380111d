// The 64 programs: defaults, selection and names, the host chunk with the current program
// riding in program 0's name, hostile chunks, and the revert and copy operations.
#include "EffectTestSupport.h"

#include <gtest/gtest.h>

namespace {

constexpr size_t kBank = AZephyraProgram::kBytes;
constexpr size_t kRecord = sizeof(ZephyraProgramRecord);

int32_t storedProgramNumber(const std::string& bank) {
    int32_t program;
    std::memcpy(&program, bank.data() + 68, sizeof(program));
    return program;
}

std::string programName(AZephyra& effect, int program) {
    char name[32] = {};
    effect.getProgramNameIndexed(0, program, name);
    return name;
}

TEST(Programs, AFreshEffectHoldsSixtyFourEmptyDefaultPrograms) {
    AZephyra effect(nullptr);
    for (int program = 0; program < 64; ++program) {
        effect.setProgram(program);
        const ZephyraProgramRecord record = CurrentRecord(effect);
        EXPECT_EQ(programName(effect, program), "Empty");
        EXPECT_EQ(record.param[kParamOnOff], 1.0f);
        EXPECT_EQ(record.param[kParamType1], 0.0f) << "band 1 a low shelf";
        EXPECT_EQ(record.param[kParamType2], 1.0f) << "band 2 a high shelf";
        for (const int gain : {kParamGain1, kParamGain2}) {
            EXPECT_EQ(record.param[gain], 0.5f);
        }
        for (const int freq : {kParamFreq1, kParamFreq2}) {
            EXPECT_EQ(record.param[freq], ValToNormalizeValue(freq, 1000.0f));
        }
        EXPECT_EQ(record.param[kParamQ2], ValToNormalizeValue(kParamQ2, 1.0f));
    }
}

TEST(Programs, ConstructionAndProgramZeroDisagreeOnTheBandTypes) {
    AZephyra effect(nullptr);
    // Kept: the parameter table's defaults are the other way round from the programs'.
    EXPECT_EQ(effect.getParameter(kParamType1), 1.0f);
    EXPECT_EQ(effect.getParameter(kParamType2), 0.0f);
    effect.setProgram(0);
    EXPECT_EQ(effect.getParameter(kParamType1), 0.0f);
    EXPECT_EQ(effect.getParameter(kParamType2), 1.0f);
}

TEST(Programs, SelectionLoadsValuesAndRefreshesThePanel) {
    AZephyra effect(nullptr, MakePanelEditor);
    effect.setProgram(5);
    effect.setParameter(kParamGain2, 0.9f);
    effect.setProgram(6);
    EXPECT_EQ(effect.getParameter(kParamGain2), 0.5f);
    const int modifies = PanelOf(effect).modifies;
    effect.setProgram(5);
    EXPECT_EQ(effect.getProgram(), 5);
    EXPECT_EQ(effect.getParameter(kParamGain2), 0.9f);
    EXPECT_EQ(PanelOf(effect).modifies, modifies + 1);
}

TEST(Programs, NumbersOutsideTheBankAreHarmless) {
    AZephyra effect(nullptr);
    effect.setProgram(3);
    AEffect* record = effect.getAeffect();
    record->dispatcher(record, effSetProgram, 0, -1, nullptr, 0.0f);
    effect.setProgram(64);
    effect.setProgram(INT32_MIN);
    effect.CopyPgFrom(-1);
    effect.CopyPgFrom(64);
    EXPECT_EQ(effect.getProgram(), 3);
    char name[32] = "kept";
    EXPECT_FALSE(effect.getProgramNameIndexed(0, 64, name));
    EXPECT_FALSE(effect.getProgramNameIndexed(0, -1, name));
    EXPECT_STREQ(name, "kept");
}

TEST(Programs, NamesAreBoundedAndLeaveTheProgramNumberBytesAlone) {
    AZephyra effect(nullptr);
    char longName[100];
    std::memset(longName, 'n', sizeof(longName) - 1);
    longName[99] = 0;
    effect.setProgramName(longName);
    char name[32] = {};
    effect.getProgramName(name);
    EXPECT_EQ(std::string(name), std::string(23, 'n'));

    effect.setProgram(9);
    const std::string bank = BankImage(effect);
    EXPECT_EQ(storedProgramNumber(bank), 9);
    EXPECT_EQ(bank[44 + 23], '\0');
    EXPECT_EQ(programName(effect, 0), std::string(23, 'n'));
    EXPECT_TRUE(effect.getProgramNameIndexed(0, 63, name));
    EXPECT_STREQ(name, "Empty");
}

TEST(BankChunk, CurrentProgramRidesAtOffset68) {
    AZephyra source(nullptr);
    source.setProgram(5);
    source.setParameter(kParamQ1, 0.3f);
    void* data = nullptr;
    ASSERT_EQ(source.getChunk(&data, false), 4608);
    const std::string bank(static_cast<char*>(data), kBank);
    EXPECT_EQ(storedProgramNumber(bank), 5);

    AZephyra target(nullptr);
    EXPECT_EQ(target.setChunk(const_cast<char*>(bank.data()), 4608, false), 0);
    EXPECT_EQ(target.getProgram(), 5);
    EXPECT_EQ(target.getParameter(kParamQ1), 0.3f);
    EXPECT_EQ(BankImage(target), bank);
}

TEST(ProgramChunk, IsTheCurrentRecordItself) {
    AZephyra effect(nullptr);
    void* bank = nullptr;
    effect.getChunk(&bank, false);
    effect.setProgram(7);
    void* program = nullptr;
    ASSERT_EQ(effect.getChunk(&program, true), 72);
    EXPECT_EQ(program, static_cast<char*>(bank) + 7 * kRecord);

    ZephyraProgramRecord incoming = CurrentRecord(effect);
    incoming.param[kParamGain1] = 0.25f;
    std::strcpy(incoming.name, "Incoming");
    effect.setChunk(&incoming, 72, true);
    EXPECT_EQ(effect.getParameter(kParamGain1), 0.25f);
    EXPECT_EQ(programName(effect, 7), "Incoming");
}

TEST(HostileChunk, NeverWritesOutsideTheBankOrRecord) {
    AZephyra effect(nullptr);
    effect.setProgram(2);
    const std::string before = BankImage(effect);
    std::string big(10000, '\x11');
    std::memcpy(big.data() + 68, "\x03\0\0\0", 4);

    effect.setChunk(big.data(), static_cast<int32_t>(big.size()), true);
    std::string after = BankImage(effect);
    EXPECT_EQ(after.compare(3 * kRecord, std::string::npos, before, 3 * kRecord), 0)
        << "only program 2's record changed";
    effect.setChunk(big.data(), static_cast<int32_t>(big.size()), false);
    EXPECT_EQ(effect.getProgram(), 3);
    after = BankImage(effect);
    EXPECT_EQ(after.substr(72, 100), big.substr(72, 100));
}

TEST(HostileChunk, AShortChunkChangesOnlyWhatItCovers) {
    AZephyra effect(nullptr);
    effect.setProgram(4);
    const std::string before = BankImage(effect); // 4 at offset 68
    const std::string piece(50, '\0');
    effect.setChunk(const_cast<char*>(piece.data()), 50, false);
    const std::string after = BankImage(effect);
    EXPECT_EQ(after.substr(0, 50), piece);
    EXPECT_EQ(after.substr(50), before.substr(50));
    EXPECT_EQ(effect.getProgram(), 4);
}

TEST(HostileChunk, EmptyNullNegativeAndForeignNumbersChangeNothing) {
    AZephyra effect(nullptr);
    effect.setProgram(6);
    const std::string before = BankImage(effect);
    char byte = 'x';
    effect.setChunk(&byte, 0, false);
    effect.setChunk(nullptr, 4608, false);
    effect.setChunk(nullptr, 72, true);
    effect.setChunk(&byte, -1, false);
    EXPECT_EQ(BankImage(effect), before);
    EXPECT_EQ(effect.getProgram(), 6);

    std::string foreign = before;
    for (const int32_t number : {-1, 64, 1 << 30}) {
        std::memcpy(foreign.data() + 68, &number, 4);
        effect.setChunk(foreign.data(), 4608, false);
        EXPECT_EQ(effect.getProgram(), 6) << number;
    }
}

TEST(ProgramState, ChangedMeansParameterBytesDifferFromTheSnapshot) {
    IsolatedPreferences preferences;
    RecordingHost host;
    AZephyra effect(RecordingHost::Callback);
    effect.open();
    effect.setProgram(2);
    EXPECT_FALSE(effect.IsProgramChanged());
    effect.setProgramName(const_cast<char*>("Renamed"));
    EXPECT_FALSE(effect.IsProgramChanged()) << "names are not compared";
    effect.setParameter(kParamFreq1, 0.6f);
    EXPECT_TRUE(effect.IsProgramChanged());

    host.calls.clear();
    effect.ProgramToInitial();
    EXPECT_FALSE(effect.IsProgramChanged());
    EXPECT_EQ(effect.getParameter(kParamFreq1), ValToNormalizeValue(kParamFreq1, 1000.0f));
    EXPECT_EQ(programName(effect, 2), "Empty");
    EXPECT_EQ(host.CallsWith(42).size(), 1u);
}

TEST(ProgramState, RevertsAndCopies) {
    IsolatedPreferences preferences;
    RecordingHost host;
    AZephyra effect(RecordingHost::Callback);
    effect.open();
    effect.setProgram(1);
    effect.setParameter(kParamGain1, 0.1f);
    effect.setProgramName(const_cast<char*>("Source"));
    effect.setProgram(8);
    effect.setParameter(kParamGain2, 0.2f);

    const std::string beforeAllFactory = BankImage(effect);
    host.calls.clear();
    effect.ProgramToAllFactory(); // kept: does nothing at all
    EXPECT_EQ(BankImage(effect), beforeAllFactory);
    EXPECT_TRUE(host.calls.empty());

    effect.CopyPgFrom(1);
    EXPECT_EQ(effect.getProgram(), 8);
    EXPECT_EQ(effect.getParameter(kParamGain1), 0.1f);
    EXPECT_EQ(effect.getParameter(kParamGain2), 0.5f);
    EXPECT_EQ(programName(effect, 8), "Source");
    EXPECT_EQ(host.CallsWith(42).size(), 1u);

    effect.ProgramToFactory();
    EXPECT_EQ(effect.getParameter(kParamGain1), 0.5f);
    EXPECT_EQ(programName(effect, 8), "Empty");

    effect.ProgramToAllInitial();
    effect.setProgram(1);
    EXPECT_FALSE(effect.IsProgramChanged());
    EXPECT_EQ(programName(effect, 1), "Empty");
}

} // namespace
