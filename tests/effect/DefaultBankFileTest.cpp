// The default bank file: where open looks for it, which broken or foreign files it
// ignores, and what SaveProgram writes (and keeps when writing fails).
#include "tests/effect/EffectTestSupport.h"

#include <gtest/gtest.h>

#include <algorithm>

#ifdef _WIN32
#include <windows.h>
#else
#include <csignal>
#include <sys/resource.h>
#include <unistd.h>
#endif

namespace {

// The running test program's folder, asked of the system another way than the effect asks.
std::string ExecutableFolder() {
    char executable[4096] = {};
#ifdef _WIN32
    GetModuleFileNameA(nullptr, executable, sizeof(executable) - 1);
    std::replace(executable, executable + sizeof(executable), '\\', '/');
#else
    readlink("/proc/self/exe", executable, sizeof(executable) - 1);
#endif
    const std::string path = executable;
    return path.substr(0, path.rfind('/') + 1);
}

class DefaultBankFile : public testing::Test {
protected:
    DefaultBankFile() { AnswerDirectory(pluginFolder.Path()); }

    void AnswerDirectory(const std::string& folder) {
        directoryAnswer = folder;
        host.answers[audioMasterGetDirectory] = reinterpret_cast<intptr_t>(directoryAnswer.c_str());
    }
    std::string PreferencesCopy() const { return preferences.folder / "ZephyraDef.fxb"; }
    std::string PluginCopy() const { return pluginFolder / "ZephyraDef.fxb"; }
    // Program 0's name in the current bank, then in the factory bank.
    static std::pair<std::string, std::string> CurrentAndFactory(AZephyra& effect) {
        effect.setProgram(0);
        const std::string current = ProgramName(effect, 0);
        effect.ProgramToFactory();
        return {current, ProgramName(effect, 0)};
    }

    IsolatedPreferences preferences;
    TempFolder pluginFolder;
    std::string directoryAnswer;
    RecordingHost host;
};

using Names = std::pair<std::string, std::string>;

TEST_F(DefaultBankFile, PreferencesCopyIsCurrentAndThePluginsCopyIsFactory) {
    WriteWholeFile(PreferencesCopy(), ChunkBank(MarkedBank("Mine", 0.1f, 3), "VeEQ"));
    WriteWholeFile(PluginCopy(), ChunkBank(MarkedBank("Factory", 0.9f), "VeEQ"));
    AZephyra effect(RecordingHost::Callback);
    effect.open();
    EXPECT_EQ(effect.getProgram(), 3);
    EXPECT_FALSE(effect.IsProgramChanged()) << "the snapshot is taken after the read";
    effect.setProgram(0);
    EXPECT_EQ(effect.getParameter(kParamGain1), 0.1f);
    EXPECT_EQ(CurrentAndFactory(effect), Names("Mine", "Factory"));
}

TEST_F(DefaultBankFile, ThePluginFolderIsWhereTheHostPointsElseTheModulesOwn) {
    const std::string folder = pluginFolder.Path();
    for (const std::string& answer : {folder.substr(0, folder.size() - 1), folder + "Zephyra.so"}) {
        AnswerDirectory(answer);
        AZephyra effect(RecordingHost::Callback);
        effect.open();
        EXPECT_EQ(effect.GetPluginFolder(), folder) << answer;
    }
    host.answers[audioMasterGetDirectory] = 0;
    AZephyra effect(RecordingHost::Callback);
    effect.open();
    EXPECT_EQ(effect.GetPluginFolder(), ExecutableFolder());
}

TEST_F(DefaultBankFile, AnUnusablePreferencesCopyLeavesTheFactoryToThePluginsCopy) {
    const struct {
        const char* what;
        std::string preferences;
        Names expected;
    } cases[] = {{"none", "", {"Factory", "Factory"}},
                 {"another plug-in's: no factory either",
                  ChunkBank(MarkedBank("Foreign", 0.1f), "Othr"),
                  {"Empty", "Empty"}},
                 {"of another kind",
                  ChunkBank(MarkedBank("Other", 0.1f), "VeEQ", "FxBk"),
                  {"Empty", "Factory"}}};
    WriteWholeFile(PluginCopy(), ChunkBank(MarkedBank("Factory", 0.9f), "VeEQ"));
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        std::filesystem::remove(PreferencesCopy());
        if (!c.preferences.empty()) {
            WriteWholeFile(PreferencesCopy(), c.preferences);
        }
        AZephyra effect(RecordingHost::Callback);
        effect.open();
        EXPECT_EQ(CurrentAndFactory(effect), c.expected);
    }
}

TEST_F(DefaultBankFile, TruncatedOrOversizedChunksAreIgnored) {
    const std::string bank = MarkedBank("Damaged", 0.1f, 5);
    for (const std::string& file :
         {ChunkBank(bank.substr(0, 1000), "VeEQ", "FBCh", 4608), ChunkBank(bank + "extra", "VeEQ"),
          ChunkBank(bank, "VeEQ", "FBCh", ~0u), std::string("CcnK\0\0", 6)}) {
        WriteWholeFile(PreferencesCopy(), file);
        AZephyra effect(RecordingHost::Callback);
        effect.open();
        EXPECT_EQ(effect.getProgram(), 0);
        EXPECT_EQ(ProgramName(effect, 0), "Empty");
    }
}

// The first test checks what open reads back from such a file.
TEST_F(DefaultBankFile, SavingWritesTheHeaderAndMovesTheEdits) {
    AZephyra effect(RecordingHost::Callback);
    effect.open();
    effect.setProgram(7);
    effect.setParameter(kParamGain1, 0.8f);
    host.calls.clear();
    effect.SaveProgram(3, "Bright");

    EXPECT_EQ(effect.getProgram(), 3);
    EXPECT_EQ(effect.getParameter(kParamGain1), 0.8f);
    EXPECT_EQ(ProgramName(effect, 3), "Bright");
    EXPECT_FALSE(effect.IsProgramChanged());
    EXPECT_EQ(host.Count(audioMasterUpdateDisplay), 1u);
    const std::string file = ReadWholeFile(PreferencesCopy());
    EXPECT_EQ(file, ChunkBank(BankImage(effect), "VeEQ"));
    EXPECT_EQ(file.substr(160 + 68, 4), std::string("\x03\0\0\0", 4));
    effect.setProgram(7);
    EXPECT_EQ(effect.getParameter(kParamGain1), 0.5f) << "the source program reverts";
}

#ifdef _WIN32
// A folder where the save writes its temporary copy, so that the save cannot begin, for the
// life of the object. (A full disk cannot be had for one process on Windows.)
class FailingSave {
public:
    explicit FailingSave(const std::string& bankFile)
        : m_blocker(bankFile + ".saving-" + std::to_string(GetCurrentProcessId())) {
        std::filesystem::create_directory(m_blocker);
    }
    ~FailingSave() { std::filesystem::remove(m_blocker); }

private:
    std::string m_blocker;
};
#else
// Makes writes past a byte limit fail, as on a full disk, for the life of the object.
class FailingSave {
public:
    explicit FailingSave(const std::string&) : m_handler(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &m_old);
        rlimit limit = m_old;
        limit.rlim_cur = 1000;
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FailingSave() {
        setrlimit(RLIMIT_FSIZE, &m_old);
        std::signal(SIGXFSZ, m_handler);
    }

private:
    void (*m_handler)(int);
    rlimit m_old{};
};
#endif

TEST_F(DefaultBankFile, AFailedSaveKeepsThePreviousFileAndSaysSo) {
    AZephyra effect(RecordingHost::Callback);
    effect.open();
    ASSERT_TRUE(effect.SaveProgram(1, "First"));
    const std::string previous = ReadWholeFile(PreferencesCopy());
    effect.setParameter(kParamQ2, 0.9f);
    host.calls.clear();
    {
        FailingSave failure(PreferencesCopy());
        EXPECT_FALSE(effect.SaveProgram(2, "Second"));
    }

    EXPECT_EQ(ReadWholeFile(PreferencesCopy()), previous);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(preferences.folder.Path()), {}), 1)
        << "no half-written file is left behind";
    EXPECT_EQ(host.Count(audioMasterUpdateDisplay), 1u);
}

} // namespace
