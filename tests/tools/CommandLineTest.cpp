// The command line: options anywhere, both spellings of a value, repeats kept in order, and
// every mistake reported as a usage error.
#include "tools/CommandLine.h"
#include "tools/ToolError.h"

#include <gtest/gtest.h>

namespace {

const std::vector<OptionDefinition> kDefinitions = {
    {"set", "NAME=VALUE", ""}, {"block", "N", ""}, {"json", nullptr, ""}};

TEST(CommandLine, ReadsOptionsBetweenAndAfterArguments) {
    const CommandLine line(
        {"in.wav", "--set", "Gain1=+6", "out.wav", "--set=Freq1=2000", "--json", "--block", "128"},
        kDefinitions);
    EXPECT_EQ(line.positionals(), (std::vector<std::string>{"in.wav", "out.wav"}));
    EXPECT_EQ(line.all("set"), (std::vector<std::string>{"Gain1=+6", "Freq1=2000"}));
    EXPECT_TRUE(line.has("json"));
    EXPECT_EQ(line.integer("block", 512, 1, 65536), 128);
    EXPECT_EQ(line.integer("missing", 512, 1, 65536), 512);
}

TEST(CommandLine, MistakesAreUsageErrors) {
    const std::vector<std::vector<std::string>> mistakes = {
        {"--volume", "3"}, // unknown option
        {"--block"},       // value missing
        {"--json=yes"},    // a switch given a value
    };
    for (const auto& arguments : mistakes) {
        EXPECT_THROW(CommandLine(arguments, kDefinitions), UsageError) << arguments[0];
    }
}

TEST(CommandLine, NumbersOutsideTheirRangeOrNotWholeAreRefused) {
    for (const char* value : {"0", "70000", "12.5", "many", ""}) {
        const CommandLine line({"--block", value}, kDefinitions);
        EXPECT_THROW(line.integer("block", 512, 1, 65536), UsageError) << value;
    }
}

} // namespace
