// The shipped module loaded and unloaded again and again, as hosts do when they scan
// their plug-in folders or reopen a project: every load gives a working effect and no
// load leaves a file descriptor, a thread or a mapping behind.
#include "TempFolder.h"
#include "TestSignal.h"
#include "Vst2Interface.h"

#include <gtest/gtest.h>

#include <dirent.h>
#include <dlfcn.h>

#include <fstream>
#include <string>

namespace {

using EntryPoint = AEffect* (*)(audioMasterCallback);

intptr_t minimalHost(AEffect*, int32_t opcode, int32_t, intptr_t, void*, float) {
    return opcode == 1 ? 2400 : 0; // the version probe
}

size_t entriesIn(const char* folder) {
    size_t count = 0;
    if (DIR* directory = opendir(folder)) {
        while (readdir(directory)) {
            ++count;
        }
        closedir(directory);
    }
    return count;
}

size_t mappingsOfTheModule() {
    std::ifstream maps("/proc/self/maps");
    size_t count = 0;
    for (std::string line; std::getline(maps, line);) {
        count += line.find("Zephyra.so") != std::string::npos ? 1 : 0;
    }
    return count;
}

// One whole session with a freshly loaded module.
void loadRunAndUnload(Noise& noise) {
    void* module = dlopen(ZEPHYRA_MODULE_PATH, RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(module, nullptr) << dlerror();
    const auto entry = reinterpret_cast<EntryPoint>(dlsym(module, "VSTPluginMain"));
    ASSERT_NE(entry, nullptr);
    AEffect* effect = entry(minimalHost);
    ASSERT_NE(effect, nullptr);
    effect->dispatcher(effect, effOpen, 0, 0, nullptr, 0.0f);
    effect->dispatcher(effect, effSetSampleRate, 0, 0, nullptr, 48000.0f);
    effect->dispatcher(effect, effSetBlockSize, 0, 128, nullptr, 0.0f);
    effect->dispatcher(effect, effMainsChanged, 0, 1, nullptr, 0.0f);
    GuardedStereo<float> in(128), out(128);
    in.Fill(noise, 1.0f);
    effect->processReplacing(effect, in.Channels(), out.Channels(), 128);
    EXPECT_TRUE(out.AllFinite() && out.GuardsIntact());
    effect->dispatcher(effect, effMainsChanged, 0, 0, nullptr, 0.0f);
    EXPECT_EQ(effect->dispatcher(effect, effClose, 0, 0, nullptr, 0.0f), 1);
    EXPECT_EQ(dlclose(module), 0);
}

TEST(ModuleReload, AHundredLoadsLeaveNothingBehind) {
    constexpr int kLoads = 100;
    TempFolder preferences; // the user's own default bank file stays out of it
    ScopedEnv configHome("XDG_CONFIG_HOME", preferences.Path());
    Noise noise(43);
    loadRunAndUnload(noise);
    const size_t descriptors = entriesIn("/proc/self/fd");
    const size_t threads = entriesIn("/proc/self/task");
    for (int i = 0; i < kLoads && !HasFatalFailure(); ++i) {
        loadRunAndUnload(noise);
    }
    EXPECT_EQ(entriesIn("/proc/self/fd"), descriptors);
    EXPECT_EQ(entriesIn("/proc/self/task"), threads);
    EXPECT_EQ(mappingsOfTheModule(), 0u) << "the module stayed mapped after dlclose";
    std::printf("%d loads of the module\n", kLoads + 1);
}

} // namespace
