// The module loader on a system where the command does not run yet: a plug-in loads, gets
// its folder and plays through; every kind of broken module is refused with its reason.
#include "tests/support/TempFolder.h"
#include "tools/PluginInstance.h"
#include "tools/ToolError.h"

#include <gtest/gtest.h>

namespace {

std::string Refusal(const std::string& path) {
    try {
        PluginInstance plugin(PluginModule::load(path), 48000.0, 64);
    } catch (const ToolError& error) {
        return error.what();
    }
    return "loaded";
}

TEST(PluginModule, LoadsAPluginThatKnowsItsFolderAndPlays) {
    const std::shared_ptr<PluginModule> module = PluginModule::load(FIXTURE_PASS_THROUGH);
    // Under wine the build's paths gain a drive ("Z:/work/...").
    const std::string path = FIXTURE_PASS_THROUGH;
    const std::string folder = path.substr(0, path.rfind('/') + 1);
    const std::string found = module->folder();
    EXPECT_EQ(found.substr(found.size() - std::min(found.size(), folder.size())), folder);

    PluginInstance plugin(module, 48000.0, 4);
    EXPECT_EQ(plugin.text(effGetEffectName), "Fixture");
    EXPECT_EQ(plugin.parameterDisplay(1), "LOW");
    plugin.resume();
    float in[2][4] = {{0.5f, -0.25f, 0.0f, 1.0f}, {0.1f, 0.2f, 0.3f, 0.4f}}, out[2][4] = {};
    float* inputs[2] = {in[0], in[1]};
    float* outputs[2] = {out[0], out[1]};
    plugin.process(inputs, outputs, 4);
    for (int channel = 0; channel < 2; ++channel) {
        EXPECT_EQ(std::vector<float>(out[channel], out[channel] + 4),
                  std::vector<float>(in[channel], in[channel] + 4));
    }
}

TEST(PluginModule, RefusesWhatIsNotAPluginWithTheReason) {
    TempFolder folder;
    WriteWholeFile(folder / "notes.dll", "not a module");
    const struct {
        std::string path, reason;
    } cases[] = {{folder / "absent.dll", "cannot read plug-in"},
                 {folder / "notes.dll", "is not a VST 2.4 plug-in: "},
                 {FIXTURE_NO_ENTRY, "exports neither VSTPluginMain nor main"},
                 {FIXTURE_NULL_ENTRY, "entry point returned no effect"},
                 {FIXTURE_BAD_MAGIC, "wrong magic number"}};
    for (const auto& c : cases) {
        EXPECT_NE(Refusal(c.path).find(c.reason), std::string::npos)
            << c.path << ": " << Refusal(c.path);
    }
}

} // namespace
