// The base effect's value-to-text operations, with the quirks hosts have long seen.
#include "tests/host/ProbeEffect.h"

#include <gtest/gtest.h>

#include <cstring>

namespace {

struct Text {
    void (AudioEffect::*convert)(float, char*, int32_t);
    float value;
    const char* text;
};

class FloatTexts : public testing::TestWithParam<Text> {};

TEST_P(FloatTexts, WriteEightCharactersOfSignDigitsAndPoint) {
    ProbeEffect effect; // 44100 Hz
    char text[9] = "previous";
    (effect.*GetParam().convert)(GetParam().value, text, 8);
    EXPECT_STREQ(text, GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Values, FloatTexts,
                         testing::Values(Text{&AudioEffect::float2string, 6.0f, "6.000000"},
                                         Text{&AudioEffect::float2string, -3.25f, "-3.25000"},
                                         Text{&AudioEffect::float2string, 0.5f, "0.500000"},
                                         Text{&AudioEffect::float2string, 1234.5f, "1234.500"},
                                         Text{&AudioEffect::float2string, 12345678.0f, "12345678"},
                                         // Kept: too large a value writes its warning nowhere.
                                         Text{&AudioEffect::float2string, 2e8f, "previous"},
                                         Text{&AudioEffect::float2string, -2e7f, "previous"},
                                         Text{&AudioEffect::dB2string, 0.0f, "-oo"},
                                         Text{&AudioEffect::dB2string, 10.0f,
                                              "20.00000"}, // 20 log10 here
                                         Text{&AudioEffect::Hz2string, 0.0f, "0.000000"},
                                         Text{&AudioEffect::Hz2string, 441.0f, "100.0000"},
                                         Text{&AudioEffect::ms2string, 441.0f, "10.00000"}));

struct IntText {
    int32_t value;
    const char* text;
};

class IntTexts : public testing::TestWithParam<IntText> {};

TEST_P(IntTexts, WriteDecimalDigits) {
    ProbeEffect effect;
    char text[16] = "previous";
    effect.int2string(GetParam().value, text, 12);
    EXPECT_STREQ(text, GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Values, IntTexts,
                         testing::Values(IntText{0, ""}, // kept: zero has no digit
                                         IntText{-5, "-5"}, IntText{1203, "1203"},
                                         IntText{99999999, "99999999"}, IntText{100000000, "Huge!"},
                                         IntText{-2147483647 - 1, "-2147483648"}));

TEST(ValueTexts, StopAtMaxLenAndTerminateThere) {
    ProbeEffect effect;
    char text[8];
    std::memset(text, '#', sizeof(text));
    effect.float2string(6.0f, text, 3);
    EXPECT_STREQ(text, "6.0");
    EXPECT_EQ(text[4], '#');
    effect.int2string(123456, text, 2);
    EXPECT_STREQ(text, "12");
}

} // namespace
