// effGetParameterProperties: hosts that take integer min/max as the raw setParameter range get
// plain 0..1 controls; every other host, and any host before effOpen, the display ranges.
#include "tests/effect/EffectTestSupport.h"

#include <gtest/gtest.h>

namespace {

const char* const kNames[kNumParams] = {"ON/OFF", "Output", "Input", "Type1", "Gain1", "Freq1",
                                        "Q1",     "Type2",  "Gain2", "Freq2", "Q2"};

struct HostStrings {
    const char* host; // names the case
    const char* product;
    const char* vendor;
};

std::string CaseName(const testing::TestParamInfo<HostStrings>& info) {
    return info.param.host;
}

class OpenedBy : public testing::TestWithParam<HostStrings> {
protected:
    OpenedBy() {
        host.texts[audioMasterGetProductString] = GetParam().product;
        host.texts[audioMasterGetVendorString] = GetParam().vendor;
    }
    VstParameterProperties Properties(int index) {
        VstParameterProperties p;
        std::memset(&p, 0xA5, sizeof(p));
        EXPECT_TRUE(effect.getParameterProperties(index, &p)) << index;
        return p;
    }
    IsolatedPreferences preferences;
    RecordingHost host;
    AZephyra effect{RecordingHost::Callback};
};

class RawRangeHost : public OpenedBy {};

TEST_P(RawRangeHost, SeesUnflaggedControlsNamedAfterTheParameters) {
    effect.open();
    for (int index = 0; index < kNumParams; ++index) {
        const VstParameterProperties p = Properties(index);
        EXPECT_EQ(p.flags, 0) << "no switch, no integer range: " << index;
        EXPECT_STREQ(p.label, kNames[index]);
        EXPECT_EQ(p.minInteger | p.maxInteger | p.stepInteger | p.largeStepInteger, 0);
        EXPECT_EQ(p.shortLabel[0] | p.categoryLabel[0], 0) << "the rest is zeroed";
    }
}

TEST_P(RawRangeHost, IsAskedOnceAtOpenAndNotBefore) {
    EXPECT_EQ(Properties(kParamGain1).flags, 10) << "display ranges until effOpen";
    EXPECT_EQ(host.Count(audioMasterGetProductString), 0u);
    effect.open();
    for (int index = 0; index < kNumParams; ++index) {
        Properties(index);
    }
    EXPECT_EQ(host.Count(audioMasterGetProductString), 1u);
    EXPECT_EQ(host.Count(audioMasterGetVendorString), 1u);
}

INSTANTIATE_TEST_SUITE_P(Hosts, RawRangeHost,
                         testing::Values(HostStrings{"Ardour", "Ardour", "Linux Audio Systems"},
                                         HostStrings{"Qtractor", "Qtractor", "rncbc.org"},
                                         HostStrings{"Carla", "Carla", "falkTX"}),
                         CaseName);

class OtherHost : public OpenedBy {};

// The same table as before hosts were told apart.
TEST_P(OtherHost, KeepsTheDisplayRanges) {
    effect.open();
    const struct {
        int index;
        int32_t flags, min, max;
        const char* label;
    } table[] = {{0, 11, 0, 1, ""},      {1, 10, 0, 2, "dB"},      {3, 11, 0, 2, ""},
                 {4, 10, -12, 12, "dB"}, {5, 10, 20, 20000, "Hz"}, {10, 10, 0, 10, ""}};
    for (const auto& expected : table) {
        const VstParameterProperties p = Properties(expected.index);
        EXPECT_EQ(p.flags, expected.flags) << expected.index;
        EXPECT_EQ(p.minInteger, expected.min) << expected.index;
        EXPECT_EQ(p.maxInteger, expected.max) << expected.index;
        EXPECT_STREQ(p.label, expected.label);
        EXPECT_EQ(p.stepInteger, 128);
        EXPECT_EQ(p.largeStepInteger, 256);
        EXPECT_EQ(p.displayIndex, expected.index);
        EXPECT_EQ(p.categoryLabel[0] | p.shortLabel[0], 0) << "the rest is zeroed";
    }
}

INSTANTIATE_TEST_SUITE_P(
    Hosts, OtherHost,
    testing::Values(HostStrings{"ArdourScanner", "", ""},
                    HostStrings{"CommandLineHost", "zephyra command-line host", "Zephyra"},
                    HostStrings{"CarlaDiscovery", "Carla-Discovery", "falkTX"}),
    CaseName);

// Hosts that ignore the 64-character limit write into the effect's buffers unchecked (the
// AddressSanitizer build watches them); a known host's name with more after it is another
// host.
TEST(HostStrings, LongerThanTheLimitFitAndMatchNoKnownHost) {
    IsolatedPreferences preferences;
    RecordingHost host;
    host.texts[audioMasterGetProductString] = "Ardour" + std::string(200, ' ');
    host.texts[audioMasterGetVendorString] = "Linux Audio Systems" + std::string(236, ' ');
    AZephyra effect(RecordingHost::Callback);
    effect.open();
    VstParameterProperties p;
    effect.getParameterProperties(kParamGain1, &p);
    EXPECT_EQ(p.flags, 10);
}

} // namespace
