// The import of a legacy program list (one tab-separated value line per program file)
// and the small readers it rests on.
#include "effect/LegacyProgramImport.h"
#include "effect/Myifstream.h"
#include "tests/effect/EffectTestSupport.h"

#include <gtest/gtest.h>

namespace {

const std::string kList = "QMT5.0 EFFECT PROGRAM LIST\r\n";
const std::string kPeakLine = "QMT5.0 EFFECT PRG FILE\r\nx\t0\t1\t0\t393216\t65536000\t65536\r\n";

class LegacyImport : public testing::Test {
protected:
    void Import(const std::string& list) {
        WriteWholeFile(folder / "PROGRAM.LST", list);
        effect.ConvertFrom((folder / "PROGRAM.LST").c_str(), folder.Path().c_str());
    }
    ZephyraProgramRecord Record(int program) {
        effect.setProgram(program);
        return CurrentRecord(effect);
    }

    TempFolder folder;
    AZephyra effect{nullptr};
};

TEST_F(LegacyImport, ValueLinesBecomeBandSettingsAndFlagsCarryOver) {
    WriteWholeFile(folder / "Peak.PGM", kPeakLine);
    // No header: the first line is the value line. A field that starts with a space, or an
    // empty one, leaves its target alone.
    WriteWholeFile(folder / "Shelf.PGM", "x\t1\t0\t0\t 5\t\t131072\n");
    Import(kList + "3\r\nPeak\r\nShelf\r\nGhost\r\n");

    const ZephyraProgramRecord peak = Record(0);
    EXPECT_EQ(ProgramName(effect, 0), "Peak");
    EXPECT_EQ(peak.param[kParamType1], 0.5f);
    EXPECT_EQ(peak.param[kParamGain1], 0.75f);
    EXPECT_EQ(peak.param[kParamFreq1], ValToNormalizeValue(kParamFreq1, 1000.0f));
    EXPECT_EQ(peak.param[kParamQ1], ValToNormalizeValue(kParamQ1, 1.0f));
    // Band 2's flags never appear, so they keep the entry count: the last, high, wins.
    EXPECT_EQ(peak.param[kParamType2], 1.0f);

    const ZephyraProgramRecord shelf = Record(1);
    EXPECT_EQ(shelf.param[kParamType1], 0.0f);
    EXPECT_EQ(shelf.param[kParamGain1], 0.5f);
    EXPECT_EQ(shelf.param[kParamQ1], ValToNormalizeValue(kParamQ1, 2.0f));
    EXPECT_EQ(shelf.param[kParamOutput], ValToNormalizeValue(kParamOutput, 1.0f));

    // A missing program file leaves the previous value line in place.
    const ZephyraProgramRecord ghost = Record(2);
    EXPECT_EQ(ProgramName(effect, 2), "Ghost");
    EXPECT_EQ(std::memcmp(ghost.param, shelf.param, sizeof(shelf.param)), 0);
}

// Fields 7 to 12 are band 2's: flags, gain, frequency and Q. The values are pinned by hand
// (-6 dB of -12..12, 5000 Hz of 20..20000, Q 2 of 0.3..10).
TEST_F(LegacyImport, TheSecondHalfOfTheValueLineIsBandTwo) {
    WriteWholeFile(folder / "Band2.PGM", "x\t\t\t\t\t\t\t0\t1\t0\t-393216\t327680000\t131072\n");
    const float gain1Before = Record(0).param[kParamGain1];
    Import(kList + "1\r\nBand2\r\n");
    const ZephyraProgramRecord band2 = Record(0);
    EXPECT_EQ(band2.param[kParamType2], 0.5f) << "only the peak flag is set";
    EXPECT_FLOAT_EQ(band2.param[kParamGain2], 0.25f);
    EXPECT_FLOAT_EQ(band2.param[kParamFreq2], 4980.0f / 19980.0f);
    EXPECT_FLOAT_EQ(band2.param[kParamQ2], 1.7f / 9.7f);
    EXPECT_EQ(band2.param[kParamGain1], gain1Before) << "band 1 keeps its value";
}

TEST_F(LegacyImport, ListsThatDoNotQualifyImportNothing) {
    WriteWholeFile(folder / "Peak.PGM", kPeakLine);
    const std::string untouched = BankImage(effect);
    for (const std::string& list : {kList + "0\nPeak\n", kList + "-3\nPeak\n",
                                    std::string("QMT4.0 EFFECT PROGRAM LIST\n1\nPeak\n")}) {
        Import(list);
        EXPECT_EQ(BankImage(effect), untouched) << list;
    }
    effect.ConvertFrom((folder / "absent.LST").c_str(), folder.Path().c_str());
    EXPECT_EQ(BankImage(effect), untouched);
}

TEST_F(LegacyImport, StopsAfterSixtyFourEntriesAndBoundsNames) {
    std::string list = kList + "70\n";
    for (int i = 0; i < 70; ++i) {
        list += "Entry number " + std::to_string(i) + " with a very long name indeed\n";
    }
    Import(list);
    EXPECT_EQ(ProgramName(effect, 63), "Entry number 63 with a ");
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
    // Kept: a longer line is cut and terminated at index size (the buffer holds size + 1).
    std::memset(line, '#', sizeof(line));
    file.getline(line, 4);
    EXPECT_STREQ(line, "long");
    EXPECT_EQ(line[5], '#');
    file.getline(line, 16);
    EXPECT_STREQ(line, "longline");
    EXPECT_TRUE(file.eof());
    Myifstream missing;
    EXPECT_FALSE(missing.open((folder / "absent.txt").c_str(), Myifstream::kRead));
    EXPECT_TRUE(missing.fail());
}

TEST(LegacyReaders, FieldsAreCutAtTabs) {
    const struct {
        int start;
        const char* field;
        uint32_t next;
    } table[] = {{0, "x", 2},          {2, "12", 5},         {5, "", 6},
                 {6, "7", kLastField}, {40, "", kLastField}, {-1, "", kLastField}};
    char field[kFieldSize];
    for (const auto& row : table) {
        EXPECT_EQ(StrTerminateTab("x\t12\t\t7", row.start, field), row.next) << row.start;
        EXPECT_STREQ(field, row.field);
    }
    const std::string endless(6000, 'z');
    EXPECT_EQ(StrTerminateTab(endless.c_str(), 0, field), kLastField);
    EXPECT_EQ(std::strlen(field), kFieldSize - 1);
}

} // namespace
