// The module loaded, used and unloaded again and again, as hosts do: every load works, and
// none leaves memory, a file descriptor, a thread or a mapping behind.
#include "tests/support/BankBytes.h"
#include "tests/support/TempFolder.h"
#include "tests/validation/support/ProcessResources.h"
#include "tests/validation/support/TestSignal.h"
#include "tools/PluginInstance.h"

#include <gtest/gtest.h>

#include <fstream>
#include <string>

namespace {

// Each round loads the module this often; a sanitizer build, where every load is slow, a
// few times only.
constexpr int kLoadsPerRound = kSanitizedBuild ? 3 : 60;
// A leak of the module's grows the heap in every round, by at least one smallest block
// (32 bytes) a load. The loader and the libraries keep caches of their own that grow now
// and then, by up to a few kilobytes at unforeseeable loads, and then stay: so the heap
// must come out of one of these rounds no bigger than it went in, give or take a block.
constexpr int kHeapRounds = 6;
constexpr size_t kHeapChurn = 64;

size_t mappingsOfTheModule() {
    std::ifstream maps("/proc/self/maps");
    size_t count = 0;
    for (std::string line; std::getline(maps, line);) {
        count += line.find("Zephyra.so") != std::string::npos ? 1 : 0;
    }
    return count;
}

// One whole session with a freshly loaded module, through the shared loader, which unloads
// the module when its last instance goes: a block in each precision, the bank chunk taken
// and given back, the mains switched off. The libraries the module brings along
// stay loaded from the first unload on, as in a host (HeldLibraries.h): what a later load
// leaves behind is then the module's own.
std::string loadRunAndUnload(Noise& noise) {
    PluginInstance plugin(PluginModule::load(ZEPHYRA_MODULE_PATH), 48000.0, 128);
    plugin.resume();
    GuardedStereo<float> in(128), out(128);
    GuardedStereo<double> inDouble(128), outDouble(128);
    in.Fill(noise, 1.0f);
    inDouble.Fill(noise, 1.0f);
    plugin.process(in.Channels(), out.Channels(), 128);
    plugin.process(inDouble.Channels(), outDouble.Channels(), 128);
    EXPECT_TRUE(out.AllFinite() && out.GuardsIntact());
    EXPECT_TRUE(outDouble.AllFinite() && outDouble.GuardsIntact());
    void* data = nullptr;
    const auto size = static_cast<size_t>(plugin.dispatch(effGetChunk, 0, 0, &data));
    std::string chunk(static_cast<const char*>(data), size);
    plugin.dispatch(effSetChunk, 0, static_cast<intptr_t>(size), chunk.data());
    plugin.suspend();
    return chunk;
}

// The first round makes whatever is made once per process; the second must end where
// the first did, give or take the loader's bookkeeping.
TEST(ModuleReload, RepeatedLoadsLeaveNothingBehind) {
    TempFolder preferences; // the user's own default bank file stays out of it
    ScopedEnv configHome("XDG_CONFIG_HOME", preferences.Path());
    Noise noise(43);
    // A default bank file of the module's own for every later load to read.
    WriteWholeFile(preferences / "ZephyraDef.fxb", ChunkBank(loadRunAndUnload(noise), "VeEQ"));
    const auto round = [&noise] {
        for (int i = 0; i < kLoadsPerRound; ++i) {
            loadRunAndUnload(noise);
        }
    };
    round();
    ASSERT_FALSE(HasFatalFailure());
    const size_t descriptors = OpenFileDescriptors();
    const size_t threads = ThreadCount();
    round();
    ASSERT_FALSE(HasFatalFailure());
    EXPECT_EQ(OpenFileDescriptors(), descriptors);
    EXPECT_EQ(ThreadCount(), threads);
    EXPECT_EQ(mappingsOfTheModule(), 0u) << "the module stayed mapped after dlclose";
    int loads = 2 * kLoadsPerRound;
    if (!kSanitizedBuild) {
        long growth = 0;
        for (int i = 0; i < kHeapRounds; ++i) {
            const size_t before = HeapInUse();
            round();
            ASSERT_FALSE(HasFatalFailure());
            loads += kLoadsPerRound;
            growth = static_cast<long>(HeapInUse()) - static_cast<long>(before);
            if (growth <= static_cast<long>(kHeapChurn))
                break;
        }
        EXPECT_LE(growth, static_cast<long>(kHeapChurn))
            << "the heap grew in every round of " << kLoadsPerRound << " loads, by " << growth
            << " bytes in the last";
    }
    std::printf("%d loads of the module\n", loads);
}

} // namespace
