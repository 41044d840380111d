// Texts from plug-ins reach `info --json` unchanged where JSON allows it; program names in a
// legacy encoding must not make the document invalid.
#include "tools/JsonWriter.h"

#include <gtest/gtest.h>

namespace {

struct QuotingCase {
    const char* name;
    std::string text;
    std::string quoted;
};

class JsonQuoting : public testing::TestWithParam<QuotingCase> {};

TEST_P(JsonQuoting, ProducesAValidString) {
    EXPECT_EQ(jsonQuoted(GetParam().text), GetParam().quoted);
}

INSTANTIATE_TEST_SUITE_P(
    Tool, JsonQuoting,
    testing::Values(QuotingCase{"PlainText", "ON/OFF", "\"ON/OFF\""},
                    QuotingCase{"QuotesAndBackslashes", "a\"b\\c", "\"a\\\"b\\\\c\""},
                    QuotingCase{"ControlCharacters", "tab\there\r", "\"tab\\u0009here\\u000d\""},
                    QuotingCase{"ValidUtf8IsKept",
                                "Gr\xC3\xBC\xC3\x9F"
                                "e",
                                "\"Gr\xC3\xBC\xC3\x9F"
                                "e\""},
                    // A Shift-JIS katakana: its lead byte is no UTF-8 and becomes U+FFFD; its
                    // second byte happens to be ASCII 'v' and stays.
                    QuotingCase{"LegacyBytesAreReplaced", "\x83\x76", "\"\xEF\xBF\xBDv\""},
                    QuotingCase{"CutSequenceAtTheEnd", "ok\xE3\x81",
                                "\"ok\xEF\xBF\xBD\xEF\xBF\xBD\""}),
    [](const testing::TestParamInfo<QuotingCase>& info) { return std::string(info.param.name); });

} // namespace
