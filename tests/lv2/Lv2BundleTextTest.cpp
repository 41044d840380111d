// The bundle's description as written from the factory bank: a preset for each named
// program, port defaults from program 0, ranges and type words.
#include "lv2/Lv2BundleText.h"
#include "effect/AZephyra.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

namespace {

class Lv2BundleText : public testing::Test {
protected:
    void SetUp() override {
        std::vector<char> chunk;
        ASSERT_EQ(ReadBankFile(ZEPHYRA_FACTORY_BANK, kZephyraUniqueId, chunk),
                  BankFileStatus::kRead);
        ASSERT_EQ(chunk.size(), AZephyraProgram::kBytes);
        std::memcpy(bank.data(), chunk.data(), chunk.size());
    }

    // The lines from the first that holds the text to the end of its statement.
    static std::string StatementWith(const std::string& text, const std::string& inside) {
        const size_t at = text.find(inside);
        if (at == std::string::npos)
            return "";
        const size_t start = text.rfind("\n<", at);
        return text.substr(start, text.find(" .\n", at) - start);
    }

    static size_t Count(const std::string& text, const std::string& what) {
        size_t count = 0;
        for (size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + 1))
            ++count;
        return count;
    }

    AZephyraProgram bank;
};

// ardour_lv2_session loads one of them in Ardour: its port values must make the VST
// program, so a preset's values in the wrong units or of the wrong program fail there.
TEST_F(Lv2BundleText, TheNamedFactoryProgramsArePresets) {
    const std::string presets = lv2::PresetsText(bank);
    EXPECT_EQ(Count(presets, "a pset:Preset"), 12u) << "the twelve named programs, no Empty";
    EXPECT_EQ(Count(lv2::ManifestText(bank, "Zephyra.so"), "a pset:Preset"), 12u);
}

TEST_F(Lv2BundleText, PortsTakeTheirDefaultsFromProgramZeroAndTheirRangesFromTheTable) {
    const std::string plugin = lv2::PluginText(bank);
    // Flat: low shelf at 100 Hz and high shelf at 8 kHz, both 0 dB.
    const std::string freq1 = StatementWith(plugin, "lv2:symbol \"freq1\"");
    EXPECT_NE(freq1.find("lv2:default 100.0 ;\n        lv2:minimum 20.0 ;\n"
                         "        lv2:maximum 20000.0 ;\n        units:unit units:hz"),
              std::string::npos)
        << freq1;
    EXPECT_NE(plugin.find("lv2:symbol \"type2\" ;\n        lv2:name \"Type2\" ;\n"
                          "        lv2:default 2.0"),
              std::string::npos);
    // 0.001 as a level is ln(0.001) / ln(2) * 6 dB.
    EXPECT_NE(plugin.find("lv2:symbol \"output\" ;\n        lv2:name \"Output\" ;\n"
                          "        lv2:default 0.0 ;\n        lv2:minimum -59.7947"),
              std::string::npos);
    for (const char* word :
         {"\"LOW\" ; rdf:value 0.0", "\"PEAK\" ; rdf:value 1.0", "\"Hi\" ; rdf:value 2.0"})
        EXPECT_EQ(Count(plugin, word), 2u) << word;
    EXPECT_EQ(Count(plugin, "lv2:portProperty lv2:toggled"), 1u);
    EXPECT_EQ(Count(plugin, "a lv2:OutputPort , lv2:ControlPort"), 4u) << "the meters";
}

} // namespace
