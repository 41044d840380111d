// Reading bank files: both kinds, the selected program of newer banks, and damaged files.
#include "tools/FxbFile.h"
#include "tests/support/BankBytes.h"
#include "tests/support/TempFolder.h"
#include "tools/ToolError.h"

#include <gtest/gtest.h>

namespace {

class BankFiles : public testing::Test {
protected:
    FxbFile read(const std::string& bytes) {
        WriteWholeFile(folder / "bank.fxb", bytes);
        return readBankFile(folder / "bank.fxb");
    }

    std::string failureOf(const std::string& bytes) {
        try {
            read(bytes);
        } catch (const ToolError& error) {
            return error.what();
        }
        return "no failure";
    }

    TempFolder folder;
};

TEST_F(BankFiles, ParameterListsKeepOrderNamesAndValues) {
    const FxbFile bank =
        read(FxHeader("FxBk", 2, "Abcd", 2, 1) + ProgramRecord("Abcd", "Soft", {0.25f, 0.5f}) +
             ProgramRecord("Abcd", "Loud", {1.0f, 0.125f}));
    EXPECT_FALSE(bank.isChunk);
    EXPECT_EQ(bank.pluginId, 0x41626364); // 'Abcd'
    EXPECT_EQ(bank.currentProgram, 1);
    ASSERT_EQ(bank.programs.size(), 2u);
    EXPECT_EQ(bank.programs[0].name, "Soft");
    EXPECT_EQ(bank.programs[1].name, "Loud");
    EXPECT_EQ(bank.programs[1].parameters, (std::vector<float>{1.0f, 0.125f}));
}

TEST_F(BankFiles, FirstFormatVersionHasNoSelectedProgram) {
    const FxbFile bank =
        read(FxHeader("FxBk", 1, "Abcd", 1, 7) + ProgramRecord("Abcd", "Only", {0.5f}));
    EXPECT_EQ(bank.currentProgram, 0);
}

TEST_F(BankFiles, ChunkIsTakenWhole) {
    const FxbFile bank = read(ChunkBank("abcde", "Abcd"));
    EXPECT_TRUE(bank.isChunk);
    EXPECT_EQ(std::string(bank.chunk.begin(), bank.chunk.end()), "abcde");
}

TEST_F(BankFiles, DamagedOrForeignFilesAreRefused) {
    const std::pair<std::string, const char*> cases[] = {
        {ChunkBank("only a little", "Abcd", "FBCh", 4608), "ends too early"},
        {FxHeader("FxBk", 1, "Abcd", 2) + ProgramRecord("Abcd", "One", {0.5f}), "ends too early"},
        {ProgramRecord("Abcd", "Alone", std::vector<float>(40, 0.5f)),
         "is a VST file but not a bank"},
        {std::string(200, 'x'), "is not a VST bank file"},
        {"CcnK", "is not a VST bank file"},
    };
    for (const auto& [bytes, message] : cases) {
        EXPECT_NE(failureOf(bytes).find(message), std::string::npos) << message;
    }
}

} // namespace
