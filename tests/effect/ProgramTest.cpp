// The 64 programs: defaults, selection and names, the host chunk with the current program
// riding in program 0's name, hostile chunks, and the revert and copy operations.
#include "tests/effect/EffectTestSupport.h"

#include <gtest/gtest.h>

#include <tuple>

namespace {

int32_t storedProgramNumber(const std::string& bank) {
    int32_t program;
    std::memcpy(&program, bank.data() + 68, sizeof(program));
    return program;
}

TEST(Programs, AFreshEffectHoldsSixtyFourEmptyDefaultPrograms) {
    AZephyra effect(nullptr);
    // Kept: before a program is loaded the band types are the table's, the other way round.
    EXPECT_EQ(effect.getParameter(kParamType1), 1.0f);
    EXPECT_EQ(effect.getParameter(kParamType2), 0.0f);
    const auto v = ValToNormalizeValue;
    ZephyraProgramRecord expected{
        {1, v(1, 1), 1, 0, 0.5f, v(5, 1000), v(6, 1), 1, 0.5f, v(9, 1000), v(10, 1)}, "Empty"};
    for (int program = 63; program >= 0; --program) {
        effect.setProgram(program);
        const ZephyraProgramRecord record = CurrentRecord(effect);
        ASSERT_EQ(std::memcmp(&record, &expected, 72), 0) << program;
    }
    EXPECT_EQ(effect.getParameter(kParamType1), 0.0f);
}

TEST(Programs, SelectionKeepsEditsAndRefreshesThePanel) {
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
    effect.CopyPgFrom(-1);
    effect.CopyPgFrom(64);
    EXPECT_EQ(effect.getProgram(), 3);
    char name[32] = "kept";
    EXPECT_FALSE(effect.getProgramNameIndexed(0, 64, name));
    EXPECT_FALSE(effect.getProgramNameIndexed(0, -1, name));
    EXPECT_STREQ(name, "kept");
    EXPECT_EQ(ProgramName(effect, 63), "Empty");
}

TEST(Programs, NamesAreBoundedAndLeaveTheProgramNumberBytesAlone) {
    AZephyra effect(nullptr);
    effect.setProgramName(std::string(99, 'n').data());
    char name[32] = {};
    effect.getProgramName(name);
    EXPECT_EQ(std::string(name), std::string(23, 'n'));
    effect.setProgram(9);
    EXPECT_EQ(storedProgramNumber(BankImage(effect)), 9);
    EXPECT_EQ(ProgramName(effect, 0), std::string(23, 'n'));
}

TEST(ProgramChunk, IsTheCurrentRecordItself) {
    AZephyra effect(nullptr);
    effect.setProgram(7);
    void *bank = nullptr, *program = nullptr;
    effect.getChunk(&bank, false);
    ASSERT_EQ(effect.getChunk(&program, true), 72);
    EXPECT_EQ(program, static_cast<char*>(bank) + 7 * 72);
    ZephyraProgramRecord incoming = CurrentRecord(effect);
    incoming.param[kParamGain1] = 0.25f;
    std::strcpy(incoming.name, "Incoming");
    effect.setChunk(&incoming, 72, true);
    EXPECT_EQ(effect.getParameter(kParamGain1), 0.25f);
    EXPECT_EQ(ProgramName(effect, 7), "Incoming");
}

TEST(HostileChunk, OversizedShortEmptyAndNullChunksStayInBounds) {
    AZephyra effect(nullptr);
    effect.setProgram(2);
    const std::string before = BankImage(effect);
    std::string big(10000, '\x11');
    std::memcpy(big.data() + 68, "\x03\0\0\0", 4);
    effect.setChunk(big.data(), 10000, true);
    EXPECT_EQ(BankImage(effect).substr(3 * 72), before.substr(3 * 72)) << "only program 2";
    effect.setChunk(big.data(), 10000, false);
    EXPECT_EQ(effect.getProgram(), 3);

    const std::string full = BankImage(effect);
    const std::string piece(50, '\0'); // ends before the program number
    effect.setChunk(const_cast<char*>(piece.data()), 50, false);
    EXPECT_EQ(BankImage(effect), piece + full.substr(50));
    EXPECT_EQ(effect.getProgram(), 3);

    const std::string afterPiece = BankImage(effect);
    char byte = 'x';
    effect.setChunk(&byte, 0, false);
    effect.setChunk(&byte, -1, false);
    effect.setChunk(nullptr, 4608, false);
    effect.setChunk(nullptr, 72, true);
    EXPECT_EQ(BankImage(effect), afterPiece);
}

TEST(HostileChunk, AProgramNumberOutsideTheBankKeepsTheCurrentOne) {
    AZephyra effect(nullptr);
    effect.setProgram(6);
    std::string bank = BankImage(effect);
    for (const int32_t number : {-1, 64, 1 << 30}) {
        std::memcpy(bank.data() + 68, &number, 4);
        effect.setChunk(bank.data(), 4608, false);
        EXPECT_EQ(effect.getProgram(), 6) << number;
    }
}

TEST(ProgramState, ChangedRevertedAndCopied) {
    IsolatedPreferences preferences;
    RecordingHost host;
    AZephyra effect(RecordingHost::Callback);
    effect.open();
    effect.setProgram(1);
    effect.setParameter(kParamGain1, 0.1f);
    effect.setProgramName(const_cast<char*>("Source"));
    effect.setProgram(8);
    effect.setProgramName(const_cast<char*>("Renamed"));
    EXPECT_FALSE(effect.IsProgramChanged()) << "names are not compared";
    effect.setParameter(kParamGain2, 0.2f);
    EXPECT_TRUE(effect.IsProgramChanged());

    const std::string before = BankImage(effect);
    host.calls.clear();
    effect.ProgramToAllFactory(); // kept: does nothing at all
    EXPECT_EQ(BankImage(effect), before);
    EXPECT_TRUE(host.calls.empty());

    effect.CopyPgFrom(1);
    EXPECT_EQ(effect.getProgram(), 8);
    EXPECT_EQ(std::make_tuple(effect.getParameter(kParamGain1), effect.getParameter(kParamGain2),
                              ProgramName(effect, 8), host.Count(audioMasterUpdateDisplay)),
              std::make_tuple(0.1f, 0.5f, std::string("Source"), size_t{1}));

    effect.ProgramToInitial();
    EXPECT_FALSE(effect.IsProgramChanged());
    EXPECT_EQ(ProgramName(effect, 8), "Empty");
    EXPECT_EQ(host.Count(audioMasterUpdateDisplay), 2u);
    effect.ProgramToAllInitial();
    effect.setProgram(1);
    EXPECT_FALSE(effect.IsProgramChanged());
}

} // namespace
