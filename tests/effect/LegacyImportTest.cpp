// The import of a legacy program list (one tab-separated value line per program file)
// and the small readers it rests on.
#include "EffectTestSupport.h"
#include "LegacyProgramImport.h"
#include "Myifstream.h"

#include <gtest/gtest.h>

namespace {

const char kListHeader[] = "QMT5.0 EFFECT PROGRAM LIST\r\n";
const char kProgramHeader[] = "QMT5.0 EFFECT PRG FILE\r\n";

class LegacyImport : public testing::Test {
protected:
    void WriteList(const std::string& body) { WriteWholeFile(folder / "PROGRAM.LST", body); }
    void WriteProgram(const std::string& name, const std::string& body) {
        WriteWholeFile(folder / (name + ".PGM"), body);
    }
    void Import() { effect.ConvertFrom((folder / "PROGRAM.LST").c_str(), folder.Path().c_str()); }
    ZephyraProgramRecord Record(int program) {
        effect.setProgram(program);
        return CurrentRecord(effect);
    }
    std::string Name(int program) {
        char name[32] = {};
        effect.getProgramNameIndexed(0, program, name);
        return name;
    }

    TempFolder folder;
    AZephyra effect{nullptr};
};

TEST_F(LegacyImport, ValueLinesBecomeBandSettings) {
    WriteList(std::string(kListHeader) + "2\r\nPeak\r\nShelf\r\n");
    WriteProgram("Peak", std::string(kProgramHeader) + "x\t0\t1\t0\t393216\t65536000\t65536\r\n");
    // No header line: the first line is the value line. A field starting with a space or
    // an empty one leaves its target alone.
    WriteProgram("Shelf", "x\t1\t0\t0\t 5\t\t131072\n");
    Import();

    const ZephyraProgramRecord peak = Record(0);
    EXPECT_EQ(Name(0), "Peak");
    EXPECT_EQ(peak.param[kParamType1], 0.5f);
    EXPECT_EQ(peak.param[kParamGain1], 0.75f);
    EXPECT_EQ(peak.param[kParamFreq1], ValToNormalizeValue(kParamFreq1, 1000.0f));
    EXPECT_EQ(peak.param[kParamQ1], ValToNormalizeValue(kParamQ1, 1.0f));
    // Band 2's flags were never in the line: they keep the entry count, so the last
    // one (high shelf) wins.
    EXPECT_EQ(peak.param[kParamType2], 1.0f);

    const ZephyraProgramRecord shelf = Record(1);
    EXPECT_EQ(Name(1), "Shelf");
    EXPECT_EQ(shelf.param[kParamType1], 0.0f);
    EXPECT_EQ(shelf.param[kParamGain1], 0.5f);
    EXPECT_EQ(shelf.param[kParamFreq1], ValToNormalizeValue(kParamFreq1, 1000.0f));
    EXPECT_EQ(shelf.param[kParamQ1], ValToNormalizeValue(kParamQ1, 2.0f));
    EXPECT_EQ(shelf.param[kParamType2], 1.0f);
    EXPECT_EQ(shelf.param[kParamOutput], ValToNormalizeValue(kParamOutput, 1.0f));
}

TEST_F(LegacyImport, AMissingProgramFileRepeatsThePreviousValues) {
    WriteList(std::string(kListHeader) + "2\nPeak\nGhost\n");
    WriteProgram("Peak", std::string(kProgramHeader) + "x\t0\t1\t0\t393216\t65536000\t65536\n");
    Import();
    const ZephyraProgramRecord peak = Record(0);
    const ZephyraProgramRecord ghost = Record(1);
    EXPECT_EQ(Name(1), "Ghost");
    EXPECT_EQ(std::memcmp(ghost.param, peak.param, sizeof(peak.param)), 0);
}

TEST_F(LegacyImport, ListsThatDoNotQualifyImportNothing) {
    const std::string untouched = BankImage(effect);
    for (const std::string& list :
         {std::string(kListHeader) + "0\nPeak\n", std::string(kListHeader) + "-3\nPeak\n",
          std::string("QMT4.0 EFFECT PROGRAM LIST\n1\nPeak\n")}) {
        WriteList(list);
        WriteProgram("Peak", "x\t0\t1\t0\t393216\n");
        Import();
        EXPECT_EQ(BankImage(effect), untouched) << list;
    }
    std::filesystem::remove(folder / "PROGRAM.LST");
    Import();
    EXPECT_EQ(BankImage(effect), untouched);
}

TEST_F(LegacyImport, StopsAfterSixtyFourEntriesAndBoundsNames) {
    std::string list = std::string(kListHeader) + "70\n";
    for (int i = 0; i < 70; ++i) {
        list += "Entry number " + std::to_string(i) + " with a very long name indeed\n";
    }
    WriteList(list);
    Import();
    EXPECT_EQ(Name(63), "Entry number 63 with a ");
    EXPECT_EQ(Name(0).size(), 23u);
}

TEST(LegacyReaders, LinesEndAtLineFeedsWithoutTheirCarriageReturn) {
    TempFolder folder;
    WriteWholeFile(folder / "lines.txt", "abc\r\nd\re\nlonglongline");
    Myifstream file;
    ASSERT_TRUE(file.open((folder / "lines.txt").c_str(), Myifstream::kRead));
    char line[16];
    file.getline(line, 10);
    EXPECT_STREQ(line, "abc");
    file.getline(line, 10);
    EXPECT_STREQ(line, "d\re");
    // Kept: a line longer than the size is cut and terminated at index size, so the
    // buffer holds size + 1 bytes.
    std::memset(line, '#', sizeof(line));
    file.getline(line, 4);
    EXPECT_STREQ(line, "long");
    EXPECT_EQ(line[5], '#');
    EXPECT_FALSE(file.eof());
    file.getline(line, 16);
    EXPECT_STREQ(line, "longline");
    EXPECT_TRUE(file.eof());

    Myifstream missing;
    EXPECT_FALSE(missing.open((folder / "absent.txt").c_str(), Myifstream::kRead));
    EXPECT_TRUE(missing.fail());
}

TEST(LegacyReaders, FieldsAreCutAtTabs) {
    const struct {
        const char* line;
        int start;
        const char* field;
        uint32_t next;
    } table[] = {
        {"x\t12\t\t7", 0, "x", 2},          {"x\t12\t\t7", 2, "12", 5},
        {"x\t12\t\t7", 5, "", 6},           {"x\t12\t\t7", 6, "7", 0xFFFFFFFF},
        {"x\t12\t\t7", 40, "", 0xFFFFFFFF}, {"x\t12\t\t7", -1, "", 0xFFFFFFFF},
    };
    for (const auto& row : table) {
        char field[kFieldSize];
        EXPECT_EQ(StrTerminateTab(row.line, row.start, field), row.next) << row.start;
        EXPECT_STREQ(field, row.field);
    }
    const std::string endless(6000, 'z');
    char field[kFieldSize];
    EXPECT_EQ(StrTerminateTab(endless.c_str(), 0, field), 0xFFFFFFFF);
    EXPECT_EQ(std::strlen(field), kFieldSize - 1);
}

} // namespace
