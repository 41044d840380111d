// The base effect's value-to-text operations, with the quirks hosts have long seen.
#include "ProbeEffect.h"

#include <gtest/gtest.h>

#include <cstring>

namespace {

constexpr int32_t kMaxLen = 8;

struct FloatText {
    float value;
    const char* text;
};

class Float2String : public testing::TestWithParam<FloatText> {};

TEST_P(Float2String, WritesEightCharactersOfSignDigitsAndPoint) {
    ProbeEffect effect;
    char text[kMaxLen + 1];
    std::memset(text, '#', sizeof(text));
    effect.float2string(GetParam().value, text, kMaxLen);
    EXPECT_STREQ(text, GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Values, Float2String,
                         testing::Values(FloatText{6.0f, "6.000000"}, FloatText{-3.25f, "-3.25000"},
                                         FloatText{0.5f, "0.500000"}, FloatText{0.0f, "0.000000"},
                                         FloatText{1234.5f, "1234.500"},
                                         FloatText{-0.75f, "-0.75000"},
                                         FloatText{12345678.0f, "12345678"},
                                         FloatText{-9999999.0f, "-9999999"}));

TEST(Float2String, ValuesTooLargeLeaveTheTextUntouched) {
    ProbeEffect effect;
    for (const float huge : {2e8f, -2e7f}) {
        char text[kMaxLen + 1] = "previous";
        effect.float2string(huge, text, kMaxLen);
        EXPECT_STREQ(text, "previous") << huge;
    }
}

TEST(Float2String, StopsAtMaxLenAndTerminatesThere) {
    ProbeEffect effect;
    char text[8];
    std::memset(text, '#', sizeof(text));
    effect.float2string(6.0f, text, 3);
    EXPECT_STREQ(text, "6.0");
    EXPECT_EQ(text[4], '#');
}

struct IntText {
    int32_t value;
    const char* text;
};

class Int2String : public testing::TestWithParam<IntText> {};

TEST_P(Int2String, WritesDecimalDigits) {
    ProbeEffect effect;
    char text[16] = "previous";
    effect.int2string(GetParam().value, text, 12);
    EXPECT_STREQ(text, GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Values, Int2String,
                         testing::Values(IntText{0, ""}, // kept: zero has no digit
                                         IntText{-5, "-5"}, IntText{1203, "1203"},
                                         IntText{99999999, "99999999"}, IntText{100000000, "Huge!"},
                                         IntText{-123456789, "-123456789"},
                                         IntText{-2147483647 - 1, "-2147483648"}));

TEST(Int2String, IsCutAtMaxLen) {
    ProbeEffect effect;
    char text[8];
    effect.int2string(123456, text, 2);
    EXPECT_STREQ(text, "12");
}

TEST(UnitTexts, DecibelsHertzAndMilliseconds) {
    ProbeEffect effect; // 44100 Hz
    char text[kMaxLen + 1];
    const struct {
        void (AudioEffect::*convert)(float, char*, int32_t);
        float value;
        const char* text;
    } cases[] = {
        {&AudioEffect::dB2string, 0.0f, "-oo"},
        {&AudioEffect::dB2string, -1.0f, "-oo"},
        {&AudioEffect::dB2string, 1.0f, "0.000000"},
        {&AudioEffect::dB2string, 10.0f, "20.00000"}, // 20 log10, unlike the equaliser's rule
        {&AudioEffect::Hz2string, 0.0f, "0.000000"},
        {&AudioEffect::Hz2string, 441.0f, "100.0000"},
        {&AudioEffect::ms2string, 441.0f, "10.00000"},
    };
    for (const auto& c : cases) {
        (effect.*c.convert)(c.value, text, kMaxLen);
        EXPECT_STREQ(text, c.text) << c.value;
    }
}

} // namespace
