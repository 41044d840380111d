// The default bank file: where open looks for it, which broken or foreign files it
// ignores, and what SaveProgram writes (and keeps when writing fails).
#include "AfxMessageBox.h"
#include "EffectTestSupport.h"
#include "StringTable.h"

#include <gtest/gtest.h>

#include <csignal>
#include <sys/resource.h>
#include <unistd.h>

namespace {

class DefaultBankFile : public testing::Test {
protected:
    DefaultBankFile() {
        host.Answer(audioMasterGetDirectory, AnswerAsPointer(pluginFolder.Path()));
    }

    static intptr_t AnswerAsPointer(const std::string& text) {
        return reinterpret_cast<intptr_t>(text.c_str());
    }
    void WritePreferencesCopy(const BankFileSpec& spec) {
        WriteWholeFile(preferences.folder / "ZephyraDef.fxb", BankFileBytes(spec));
    }
    void WritePluginCopy(const BankFileSpec& spec) {
        WriteWholeFile(pluginFolder / "ZephyraDef.fxb", BankFileBytes(spec));
    }
    static std::string NameOf(AZephyra& effect, int program) {
        char name[32] = {};
        effect.getProgramNameIndexed(0, program, name);
        return name;
    }
    // The name and Gain1 of program 0 in the current bank, then in the factory bank.
    static std::pair<std::string, std::string> CurrentAndFactory(AZephyra& effect) {
        effect.setProgram(0);
        const std::string current = NameOf(effect, 0);
        effect.ProgramToFactory();
        return {current, NameOf(effect, 0)};
    }

    IsolatedPreferences preferences;
    TempFolder pluginFolder;
    RecordingHost host;
};

TEST_F(DefaultBankFile, PreferencesCopyIsCurrentAndThePluginsCopyIsFactory) {
    WritePreferencesCopy({MarkedBank("Mine", 0.1f, 3)});
    WritePluginCopy({MarkedBank("Factory", 0.9f)});
    AZephyra effect(RecordingHost::Callback);
    effect.open();

    EXPECT_EQ(effect.getProgram(), 3);
    EXPECT_FALSE(effect.IsProgramChanged());
    EXPECT_STREQ(effect.GetPluginFolder(), pluginFolder.Path().c_str());
    effect.setProgram(0);
    EXPECT_EQ(effect.getParameter(kParamGain1), 0.1f);
    EXPECT_EQ(CurrentAndFactory(effect),
              std::make_pair(std::string("Mine"), std::string("Factory")));
}

TEST_F(DefaultBankFile, WithoutAPreferencesCopyThePluginsCopyServesBoth) {
    WritePluginCopy({MarkedBank("Factory", 0.9f)});
    AZephyra effect(RecordingHost::Callback);
    effect.open();
    EXPECT_EQ(CurrentAndFactory(effect),
              std::make_pair(std::string("Factory"), std::string("Factory")));
}

TEST_F(DefaultBankFile, ThePluginFolderIsWhereverTheHostPointsOrTheModulesOwn) {
    const std::string folder = pluginFolder.Path();
    const std::string withoutSlash = folder.substr(0, folder.size() - 1);
    for (const std::string& answer : {withoutSlash, folder, folder + "Zephyra.so"}) {
        host.Answer(audioMasterGetDirectory, AnswerAsPointer(answer));
        AZephyra effect(RecordingHost::Callback);
        effect.open();
        EXPECT_STREQ(effect.GetPluginFolder(), folder.c_str()) << answer;
    }
    host.Answer(audioMasterGetDirectory, 0);
    AZephyra effect(RecordingHost::Callback);
    effect.open();
    char executable[4096] = {};
    ASSERT_GT(readlink("/proc/self/exe", executable, sizeof(executable) - 1), 0);
    const std::string exePath = executable;
    EXPECT_EQ(effect.GetPluginFolder(), exePath.substr(0, exePath.rfind('/') + 1));
}

TEST_F(DefaultBankFile, AForeignBankIsIgnoredWithoutLoadingTheFactory) {
    WritePreferencesCopy({MarkedBank("Foreign", 0.1f), FourCharCode('O', 't', 'h', 'r')});
    WritePluginCopy({MarkedBank("Factory", 0.9f)});
    AZephyra effect(RecordingHost::Callback);
    effect.open();
    EXPECT_EQ(CurrentAndFactory(effect),
              std::make_pair(std::string("Empty"), std::string("Empty")));
}

TEST_F(DefaultBankFile, ABankOfAnotherKindStillLoadsTheFactory) {
    BankFileSpec otherKind{MarkedBank("Other", 0.1f)};
    otherKind.bankMagic = "FxBk";
    WritePreferencesCopy(otherKind);
    WritePluginCopy({MarkedBank("Factory", 0.9f)});
    AZephyra effect(RecordingHost::Callback);
    effect.open();
    EXPECT_EQ(CurrentAndFactory(effect),
              std::make_pair(std::string("Empty"), std::string("Factory")));
}

TEST_F(DefaultBankFile, TruncatedOrOversizedChunksAreIgnored) {
    const std::string bank = MarkedBank("Damaged", 0.1f, 5);
    const BankFileSpec damaged[] = {
        {bank.substr(0, 1000), static_cast<uint32_t>(kZephyraUniqueId), "FBCh", 4608},
        {bank + "extra", static_cast<uint32_t>(kZephyraUniqueId), "FBCh", 4613},
        {bank, static_cast<uint32_t>(kZephyraUniqueId), "FBCh", 0xFFFFFFFF},
    };
    for (const BankFileSpec& spec : damaged) {
        WritePreferencesCopy(spec);
        AZephyra effect(RecordingHost::Callback);
        effect.open();
        EXPECT_EQ(effect.getProgram(), 0);
        EXPECT_EQ(NameOf(effect, 0), "Empty");
    }
    WriteWholeFile(preferences.folder / "ZephyraDef.fxb", "CcnK\0\0");
    AZephyra effect(RecordingHost::Callback);
    effect.open();
    EXPECT_EQ(NameOf(effect, 0), "Empty");
}

std::string hex(const std::string& bytes) {
    std::string text;
    char digits[4];
    for (const char byte : bytes) {
        std::snprintf(digits, sizeof(digits), "%02X ", static_cast<unsigned char>(byte));
        text += digits;
    }
    return text;
}

std::string repeated(const std::string& text, int count) {
    std::string all;
    for (int i = 0; i < count; ++i) {
        all += text;
    }
    return all;
}

TEST_F(DefaultBankFile, SavedHeaderIsBigEndianWithAZeroByteSize) {
    AZephyra effect(RecordingHost::Callback);
    effect.open();
    effect.SaveProgram(0, "Saved");
    const std::string file = ReadWholeFile(preferences.folder / "ZephyraDef.fxb");
    ASSERT_EQ(file.size(), 160u + 4608u);
    EXPECT_EQ(hex(file.substr(0, 160)), "43 63 6E 4B 00 00 00 00 46 42 43 68 00 00 00 01 "
                                        "56 65 45 51 00 00 00 01 00 00 00 40 " +
                                            repeated("00 ", 128) + "00 00 12 00 ");
    EXPECT_EQ(file.substr(160), BankImage(effect));
}

TEST_F(DefaultBankFile, SavingMovesTheEditsAndTheNextOpenReadsThem) {
    AZephyra effect(RecordingHost::Callback);
    effect.open();
    effect.setProgram(7);
    effect.setParameter(kParamGain1, 0.8f);
    host.calls.clear();
    effect.SaveProgram(3, "Bright");

    EXPECT_EQ(effect.getProgram(), 3);
    EXPECT_EQ(effect.getParameter(kParamGain1), 0.8f);
    EXPECT_EQ(NameOf(effect, 3), "Bright");
    EXPECT_FALSE(effect.IsProgramChanged());
    EXPECT_EQ(host.CallsWith(audioMasterUpdateDisplay).size(), 1u);
    effect.setProgram(7);
    EXPECT_EQ(effect.getParameter(kParamGain1), 0.5f) << "the source program reverts";

    const std::string file = ReadWholeFile(preferences.folder / "ZephyraDef.fxb");
    EXPECT_EQ(file.substr(160 + 68, 4), std::string("\x03\0\0\0", 4));
    AZephyra reopened(RecordingHost::Callback);
    reopened.open();
    EXPECT_EQ(reopened.getProgram(), 3);
    EXPECT_EQ(reopened.getParameter(kParamGain1), 0.8f);
    EXPECT_EQ(NameOf(reopened, 3), "Bright");
}

std::vector<std::string> g_messages;

int recordMessage(const char* text) {
    g_messages.emplace_back(text);
    return 1;
}

// Lets writes beyond a byte limit fail, as on a full disk, for the life of the object.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes) {
        getrlimit(RLIMIT_FSIZE, &m_old);
        m_oldHandler = std::signal(SIGXFSZ, SIG_IGN);
        rlimit limit = m_old;
        limit.rlim_cur = bytes;
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit() {
        setrlimit(RLIMIT_FSIZE, &m_old);
        std::signal(SIGXFSZ, m_oldHandler);
    }

private:
    rlimit m_old{};
    void (*m_oldHandler)(int);
};

TEST_F(DefaultBankFile, AFailedSaveKeepsThePreviousFileAndSaysSo) {
    g_messages.clear();
    SetMessageBoxHandler(recordMessage);
    AZephyra effect(RecordingHost::Callback);
    effect.open();
    effect.SaveProgram(1, "First");
    const std::string previous = ReadWholeFile(preferences.folder / "ZephyraDef.fxb");
    ASSERT_TRUE(g_messages.empty());

    host.calls.clear();
    effect.setParameter(kParamQ2, 0.9f);
    {
        FileSizeLimit diskFull(1000);
        effect.SaveProgram(2, "Second");
    }
    SetMessageBoxHandler(nullptr);

    EXPECT_EQ(ReadWholeFile(preferences.folder / "ZephyraDef.fxb"), previous);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(preferences.folder.Path()),
                            std::filesystem::directory_iterator()),
              1)
        << "no half-written file is left behind";
    ASSERT_EQ(g_messages.size(), 1u);
    EXPECT_EQ(g_messages[0], LoadStringResource(20135));
    EXPECT_NE(g_messages[0].find("default bank file could not be written"), std::string::npos);
    EXPECT_EQ(host.CallsWith(audioMasterUpdateDisplay).size(), 1u);
}

TEST(DefaultBankFileFolder, AnUncreatablePreferencesFolderIsReported) {
    TempFolder root;
    WriteWholeFile(root / "file", "not a folder");
    ScopedEnv config("XDG_CONFIG_HOME", root / "file/config");
    g_messages.clear();
    SetMessageBoxHandler(recordMessage);
    AZephyra effect(nullptr);
    effect.SaveProgram(0, "Nowhere");
    SetMessageBoxHandler(nullptr);
    EXPECT_EQ(g_messages.size(), 1u);
}

} // namespace
