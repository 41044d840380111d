// The tool against a plug-in it knows nothing about: a mono equaliser from Debian's
// zam-plugins, which exports only the legacy entry name.
#include "tests/support/BankBytes.h"
#include "tests/support/TempFolder.h"
#include "tests/tools/InfoJson.h"
#include "tests/tools/TestAudio.h"
#include "tests/tools/ToolRunner.h"

#include <cmath>
#include <gtest/gtest.h>
#include <unistd.h>

namespace {

const std::string kThirdPartyEqualiser = "/usr/lib/vst/ZamEQ2-vst.so";

class ThirdPartyPlugin : public testing::Test {
protected:
    void SetUp() override {
        if (access(kThirdPartyEqualiser.c_str(), R_OK) != 0) {
            GTEST_SKIP() << kThirdPartyEqualiser
                         << " is not installed (Debian package zam-plugins)";
        }
    }

    static ToolRun onPlugin(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), {"--plugin", kThirdPartyEqualiser});
        return runZephyra(arguments);
    }

    TempFolder folder;
};

TestAudio sine(int channels, double frequency, int sampleRate, int64_t frames) {
    TestAudio audio{channels, sampleRate, std::vector<float>(channels * frames)};
    for (int64_t frame = 0; frame < frames; ++frame) {
        const float value = static_cast<float>(
            0.1 * std::sin(2.0 * M_PI * frequency * static_cast<double>(frame) / sampleRate));
        for (int channel = 0; channel < channels; ++channel) {
            audio.samples[frame * channels + channel] = value;
        }
    }
    return audio;
}

TEST_F(ThirdPartyPlugin, InfoListsEveryParameter) {
    const ToolRun run = onPlugin({"info", "--json"});
    ASSERT_EQ(run.exitCode, 0) << run.err;
    EXPECT_EQ(jsonField(run.out, "inputs"), "1");
    EXPECT_EQ(jsonField(run.out, "outputs"), "1");
    EXPECT_EQ(jsonField(run.out, "name", parameterPosition(run.out, 0)), "Boost/Cut 1");
    EXPECT_EQ(jsonField(run.out, "name", parameterPosition(run.out, 9)), "Frequency H");
    EXPECT_EQ(jsonField(run.out, "label", parameterPosition(run.out, 2)), "Hz");
    EXPECT_NE(parameterPosition(run.out, 11), std::string::npos);
    EXPECT_EQ(parameterPosition(run.out, 12), std::string::npos);

    const ToolRun table = onPlugin({"info"});
    ASSERT_EQ(table.exitCode, 0) << table.err;
    EXPECT_NE(table.out.find("Frequency H"), std::string::npos);
    EXPECT_NE(table.out.find("1 in, 1 out"), std::string::npos);
}

TEST_F(ThirdPartyPlugin, GainOnABandRaisesItsFrequencyInEveryChannel) {
    constexpr int kRate = 48000;
    writeAudio(folder / "tone.wav", sine(2, 1000.0, kRate, kRate));
    const ToolRun flat = onPlugin({"render", folder / "tone.wav", folder / "flat.wav"});
    const ToolRun boosted = onPlugin({"render", folder / "tone.wav", folder / "boosted.wav",
                                      "--set", "Frequency 1=1000", "--set", "Boost/Cut 1=+6"});
    ASSERT_EQ(flat.exitCode, 0) << flat.err;
    ASSERT_EQ(boosted.exitCode, 0) << boosted.err;

    const TestAudio input = readAudio(folder / "tone.wav");
    const TestAudio flatOut = readAudio(folder / "flat.wav");
    const TestAudio boostedOut = readAudio(folder / "boosted.wav");
    ASSERT_EQ(std::make_pair(boostedOut.channels, boostedOut.sampleRate), std::make_pair(2, kRate));
    ASSERT_GE(boostedOut.frames(), input.frames());
    // Measured in the middle, away from the filters settling in.
    for (int channel = 0; channel < 2; ++channel) {
        const double inputLevel = rmsLevel(input, channel, kRate / 4, kRate / 2);
        const double flatDb =
            20.0 * std::log10(rmsLevel(flatOut, channel, kRate / 4, kRate / 2) / inputLevel);
        const double boostDb =
            20.0 * std::log10(rmsLevel(boostedOut, channel, kRate / 4, kRate / 2) / inputLevel);
        EXPECT_NEAR(flatDb, 0.0, 0.1) << "channel " << channel;
        EXPECT_NEAR(boostDb, 6.0, 0.5) << "channel " << channel;
    }
}

TEST_F(ThirdPartyPlugin, BankOfParameterListsSetsTheProgram) {
    const ToolRun before = onPlugin({"info", "--json"});
    ASSERT_EQ(before.exitCode, 0) << before.err;
    std::vector<float> values;
    for (int index = 0; index < 12; ++index) {
        values.push_back(index == 0 ? 0.8f : static_cast<float>(parameterValue(before.out, index)));
    }
    WriteWholeFile(folder / "mids.fxb",
                   FxHeader("FxBk", 1, "ZEQ2", 1) + ProgramRecord("ZEQ2", "Loud Mids", values));

    const ToolRun after = onPlugin({"info", "--json", "--bank", folder / "mids.fxb"});
    ASSERT_EQ(after.exitCode, 0) << after.err;
    EXPECT_FLOAT_EQ(static_cast<float>(parameterValue(after.out, 0)), 0.8f);
    EXPECT_EQ(parameterDisplay(after.out, 0).substr(0, 3), "6.0");
    EXPECT_NE(after.out.find("\"Loud Mids\""), std::string::npos);
}

TEST_F(ThirdPartyPlugin, BenchComparesAgainstAnotherPlugin) {
    const ToolRun run = onPlugin(
        {"bench", "--seconds", "0.05", "--repeat", "3", "--compare", FIXTURE_PASS_THROUGH});
    ASSERT_EQ(run.exitCode, 0) << run.err;
    // A mono plug-in on stereo noise runs twice, the stereo one once.
    EXPECT_NE(run.out.find("(" + kThirdPartyEqualiser + "), 2 instances, one per channel"),
              std::string::npos)
        << run.out;
    EXPECT_NE(run.out.find("Fixture (" FIXTURE_PASS_THROUGH "), 1 instance"), std::string::npos)
        << run.out;
    const std::size_t ratio = run.out.find("ratio (compared / main, median time per frame): ");
    ASSERT_NE(ratio, std::string::npos) << run.out;
    EXPECT_GT(std::strtod(run.out.c_str() + run.out.find(": ", ratio) + 2, nullptr), 0.0);
    EXPECT_NE(run.out.find("instances per core"), std::string::npos);
}

} // namespace
