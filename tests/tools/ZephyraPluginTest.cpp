// The tool against our own plug-in: what it renders must be exactly what the module gives
// when driven directly, and what it plots must be the equaliser's analytic response.
#include "dsp/CMultiEqualizer.h"
#include "dsp/FilterResponse.h"
#include "tests/support/BankBytes.h"
#include "tests/support/TempFolder.h"
#include "tests/tools/DirectPlugin.h"
#include "tests/tools/InfoJson.h"
#include "tests/tools/TestAudio.h"
#include "tests/tools/ToolRunner.h"

#include <algorithm>
#include <cairo.h>
#include <cmath>
#include <cstring>
#include <gtest/gtest.h>
#include <sstream>

namespace {

const std::string kModule = ZEPHYRA_MODULE;

ToolRun zephyra(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), {"--plugin", kModule});
    return runZephyra(arguments);
}

void expectSameSamples(const TestAudio& actual, const TestAudio& expected) {
    ASSERT_EQ(actual.channels, expected.channels);
    ASSERT_EQ(actual.samples.size(), expected.samples.size());
    const auto differ =
        std::mismatch(actual.samples.begin(), actual.samples.end(), expected.samples.begin());
    EXPECT_TRUE(differ.first == actual.samples.end())
        << "sample " << differ.first - actual.samples.begin();
}

struct RenderCase {
    const char* name;
    int blockSize;
    int program;
    // Parameter index and the normalised value given with --set NAME=VALUEn.
    std::vector<std::pair<int, float>> settings;
    int channels = 2;             // a mono file feeds both inputs and comes back stereo
    bool doublePrecision = false; // which must give the samples of the 32-bit call
};

const char* const kParameterNames[] = {"ON/OFF", "Output", "Input", "Type1", "Gain1", "Freq1",
                                       "Q1",     "Type2",  "Gain2", "Freq2", "Q2"};

class RenderThroughOurPlugin : public testing::TestWithParam<RenderCase> {};

TEST_P(RenderThroughOurPlugin, EqualsTheModuleDrivenDirectly) {
    const RenderCase& scenario = GetParam();
    TempFolder folder;
    // An odd length, so the last block of input is a short one.
    const TestAudio input = makeTestSignal(scenario.channels, 44100, 44100 + 1001);
    writeAudio(folder / "in.wav", input);
    std::vector<std::string> arguments = {"render",
                                          (folder / "in.wav"),
                                          (folder / "out.wav"),
                                          "--block",
                                          std::to_string(scenario.blockSize),
                                          "--program",
                                          std::to_string(scenario.program)};
    for (const auto& [index, value] : scenario.settings) {
        char assignment[64];
        std::snprintf(assignment, sizeof assignment, "%s=%.9gn", kParameterNames[index], value);
        arguments.insert(arguments.end(), {"--set", assignment});
    }
    if (scenario.doublePrecision) {
        arguments.push_back("--double");
    }
    const ToolRun run = zephyra(arguments);
    ASSERT_EQ(run.exitCode, 0) << run.err;
    const TestAudio rendered = readAudio(folder / "out.wav");
    // The tail is silence processed in whole blocks after the input.
    ASSERT_GT(rendered.frames(), input.frames());
    EXPECT_EQ((rendered.frames() - input.frames()) % scenario.blockSize, 0);

    DirectPlugin direct(kModule, 44100.0f, scenario.blockSize);
    direct.setProgram(scenario.program);
    for (const auto& [index, value] : scenario.settings) {
        direct.setParameter(index, value);
    }
    // What the module's two inputs receive: a mono file's one channel on both.
    TestAudio stereo{2, 44100, {}};
    for (int64_t frame = 0; frame < input.frames(); ++frame) {
        stereo.samples.insert(stereo.samples.end(),
                              {input.at(frame, 0), input.at(frame, input.channels - 1)});
    }
    expectSameSamples(rendered, direct.process(stereo, rendered.frames()));

    // The case must exercise the equaliser, not a pass-through.
    double difference = 0.0;
    for (int64_t frame = 0; frame < input.frames(); ++frame) {
        difference =
            std::max<double>(difference, std::fabs(rendered.at(frame, 0) - input.at(frame, 0)));
    }
    EXPECT_GT(difference, 0.01);
}

INSTANTIATE_TEST_SUITE_P(
    Tool, RenderThroughOurPlugin,
    testing::Values(RenderCase{"MonoFileInAFactoryProgram", 512, 1, {}, 1},
                    RenderCase{
                        "DoublePrecisionWithSettings", 256, 2, {{4, 0.75f}, {3, 0.5f}}, 2, true}),
    [](const testing::TestParamInfo<RenderCase>& info) { return std::string(info.param.name); });

// A narrow bell at 100 Hz and a high shelf at 5 kHz, with the output 3 dB down.
const std::vector<std::string> kPlotSettings = {"Type1=PEAK", "Gain1=+9", "Freq1=100",
                                                "Q1=4",       "Type2=Hi", "Gain2=-6",
                                                "Freq2=5000", "Q2=0.7",   "Output=-3"};

// The engine set as the plug-in sets it for kPlotSettings, asked for its exact response.
double analyticMagnitudeDb(double sampleRate, double frequency) {
    CMultiEqualizer engine;
    const tWAVEFORMATEX format{kWaveFormatIeeeFloat,
                               2,
                               static_cast<uint32_t>(sampleRate),
                               static_cast<uint32_t>(sampleRate) * 8,
                               8,
                               32,
                               0};
    engine.SetMediaType(&format, 512);
    const auto fixed = [](double value) { return static_cast<int>(value * 65536.0); };
    engine.set_OutputLevel(fixed(-3.0));
    const struct {
        int type;
        double gainDb, frequency, q;
    } bands[2] = {{1, 9.0, 100.0, 4.0}, {2, -6.0, 5000.0, 0.7}};
    for (int band = 0; band < 2; ++band) {
        engine.set_Type(band, bands[band].type);
        engine.set_Gain(band, fixed(bands[band].gainDb));
        engine.set_Freq(band, fixed(bands[band].frequency));
        engine.set_Q(band, fixed(bands[band].q));
    }
    return ChainResponse(engine.GetChain(0), frequency).magnitudeDb;
}

TEST(OurPlugin, PlotAgreesWithTheAnalyticResponse) {
    constexpr double kRate = 48000.0;
    TempFolder folder;
    std::vector<std::string> arguments = {"plot", folder / "response.png", "--csv",
                                          (folder / "response.csv")};
    for (const std::string& assignment : kPlotSettings) {
        arguments.insert(arguments.end(), {"--set", assignment});
    }
    const ToolRun run = zephyra(arguments);
    ASSERT_EQ(run.exitCode, 0) << run.err;

    std::istringstream table(ReadWholeFile(folder / "response.csv"));
    std::string line;
    std::getline(table, line);
    EXPECT_EQ(line, "frequency_hz,magnitude_db,phase_degrees");
    int points = 0;
    double largestDb = 0.0;
    while (std::getline(table, line)) {
        double frequency = 0.0, magnitudeDb = 0.0;
        ASSERT_EQ(std::sscanf(line.c_str(), "%lf,%lf", &frequency, &magnitudeDb), 2) << line;
        EXPECT_NEAR(magnitudeDb, analyticMagnitudeDb(kRate, frequency), 0.1)
            << "at " << frequency << " Hz";
        largestDb = std::max(largestDb, std::fabs(magnitudeDb));
        ++points;
    }
    EXPECT_GE(points, 500);
    EXPECT_GT(largestDb, 5.0); // a flat line would agree with a flat mistake

    cairo_surface_t* picture =
        cairo_image_surface_create_from_png((folder / "response.png").c_str());
    EXPECT_EQ(cairo_surface_status(picture), CAIRO_STATUS_SUCCESS);
    EXPECT_EQ(std::make_pair(cairo_image_surface_get_width(picture),
                             cairo_image_surface_get_height(picture)),
              std::make_pair(900, 500));
    cairo_surface_destroy(picture);
}

TEST(OurPlugin, ChunkBankBringsItsProgramsAndSelection) {
    TempFolder folder;
    // 64 records of 11 normalised values and a 28-byte name; the selected program rides in
    // bytes 68..71, at the end of the first record's name.
    constexpr std::size_t kRecord = 72;
    std::string chunk(64 * kRecord, '\0');
    const float gain1 = 0.25f;
    std::memcpy(&chunk[42 * kRecord + 4 * sizeof gain1], &gain1, sizeof gain1);
    std::memcpy(&chunk[63 * kRecord + 44], "Test 63", 8);
    const int32_t selected = 42;
    std::memcpy(&chunk[68], &selected, sizeof selected);
    WriteWholeFile(folder / "test.fxb", ChunkBank(chunk, "VeEQ"));

    const ToolRun run = zephyra({"info", "--json", "--bank", folder / "test.fxb"});
    ASSERT_EQ(run.exitCode, 0) << run.err;
    EXPECT_EQ(jsonField(run.out, "currentProgram"), "42");
    EXPECT_NEAR(parameterValue(run.out, 4), 0.25, 1e-6);
    EXPECT_NE(run.out.find("\"Test 63\""), std::string::npos);
}

// No --plugin: the default plug-in, which lv2_tools.py's render case shows to be ours.
TEST(OurPlugin, RendersTheDemoAsFlac) {
    TempFolder folder;
    const ToolRun demo =
        runZephyra({"render", "--demo", folder / "demo.flac", "--program", "1", "--rate", "44100"});
    ASSERT_EQ(demo.exitCode, 0) << demo.err;
    EXPECT_NE(demo.out.find("wrote " + (folder / "demo.flac")), std::string::npos);
    const TestAudio output = readAudio(folder / "demo.flac");
    EXPECT_EQ(std::make_pair(output.channels, output.sampleRate), std::make_pair(2, 44100));
    EXPECT_GE(output.frames(), 7 * 44100);
    EXPECT_GT(rmsLevel(output, 0, 0, output.frames()), 0.01);
}

} // namespace
