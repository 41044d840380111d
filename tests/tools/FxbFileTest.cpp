// Reading bank files: both kinds, the selected program of newer banks, and damaged files.
#include "tools/FxbFile.h"
#include "tools/ToolError.h"
#include "tests/tools/ToolRunner.h"

#include <cstring>
#include <gtest/gtest.h>

namespace {

void putWord(std::string& bytes, uint32_t value) {
    for (int shift = 24; shift >= 0; shift -= 8) {
        bytes += static_cast<char>((value >> shift) & 0xFF);
    }
}

std::string bankHeader(const char* kind, uint32_t version, uint32_t programs, uint32_t current) {
    std::string header = "CcnK";
    putWord(header, 0);
    header += kind;
    putWord(header, version);
    header += "Abcd";
    putWord(header, 1);
    putWord(header, programs);
    putWord(header, current);
    header.resize(156, '\0');
    return header;
}

std::string programRecord(const std::string& name, const std::vector<float>& values) {
    std::string record = "CcnK";
    putWord(record, 0);
    record += "FxCk";
    putWord(record, 1);
    record += "Abcd";
    putWord(record, 1);
    putWord(record, static_cast<uint32_t>(values.size()));
    std::string field = name;
    field.resize(28, '\0');
    record += field;
    for (float value : values) {
        uint32_t bits;
        std::memcpy(&bits, &value, sizeof bits);
        putWord(record, bits);
    }
    return record;
}

class BankFiles : public testing::Test {
protected:
    FxbFile read(const std::string& bytes) {
        writeText(folder.file("bank.fxb"), bytes);
        return readBankFile(folder.file("bank.fxb"));
    }

    std::string failureOf(const std::string& bytes) {
        try {
            read(bytes);
        } catch (const ToolError& error) {
            return error.what();
        }
        return "no failure";
    }

    ScratchFolder folder;
};

TEST_F(BankFiles, ParameterListsKeepOrderNamesAndValues) {
    const FxbFile bank = read(bankHeader("FxBk", 2, 2, 1) + programRecord("Soft", {0.25f, 0.5f}) +
                              programRecord("Loud", {1.0f, 0.125f}));
    EXPECT_FALSE(bank.isChunk);
    EXPECT_EQ(bank.pluginId, 0x41626364); // 'Abcd'
    EXPECT_EQ(bank.currentProgram, 1);
    ASSERT_EQ(bank.programs.size(), 2u);
    EXPECT_EQ(bank.programs[0].name, "Soft");
    EXPECT_EQ(bank.programs[1].name, "Loud");
    EXPECT_EQ(bank.programs[1].parameters, (std::vector<float>{1.0f, 0.125f}));
}

TEST_F(BankFiles, FirstFormatVersionHasNoSelectedProgram) {
    const FxbFile bank = read(bankHeader("FxBk", 1, 1, 7) + programRecord("Only", {0.5f}));
    EXPECT_EQ(bank.currentProgram, 0);
}

TEST_F(BankFiles, ChunkIsTakenWhole) {
    std::string bytes = bankHeader("FBCh", 1, 64, 0);
    putWord(bytes, 5);
    bytes += "abcde";
    const FxbFile bank = read(bytes);
    EXPECT_TRUE(bank.isChunk);
    EXPECT_EQ(std::string(bank.chunk.begin(), bank.chunk.end()), "abcde");
}

TEST_F(BankFiles, DamagedOrForeignFilesAreRefused) {
    std::string shortChunk = bankHeader("FBCh", 1, 64, 0);
    putWord(shortChunk, 4608);
    shortChunk += "only a little";
    EXPECT_NE(failureOf(shortChunk).find("ends too early"), std::string::npos);

    const std::string cutProgram = bankHeader("FxBk", 1, 2, 0) + programRecord("One", {0.5f});
    EXPECT_NE(failureOf(cutProgram).find("ends too early"), std::string::npos);

    std::string programFile = bankHeader("FxCk", 1, 1, 0);
    EXPECT_NE(failureOf(programFile).find("is a VST file but not a bank"), std::string::npos);

    EXPECT_NE(failureOf(std::string(200, 'x')).find("is not a VST bank file"), std::string::npos);
    EXPECT_NE(failureOf("CcnK").find("is not a VST bank file"), std::string::npos);
}

} // namespace
