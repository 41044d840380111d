// Every way a command can fail must end the same way: one line on stderr, a non-zero exit,
// and no output file written, half-written or destroyed.
#include "tests/support/BankBytes.h"
#include "tests/support/TempFolder.h"
#include "tests/tools/TestAudio.h"
#include "tests/tools/ToolRunner.h"

#include <cmath>
#include <csignal>
#include <gtest/gtest.h>
#include <sstream>

namespace {

const std::string kPrecious = "an earlier result that must survive";

// The folder every case starts from: a stereo input, a text file, a sub-folder, a bank of
// another plug-in, and existing outputs a failed run must leave alone.
struct ErrorScene {
    TempFolder folder;
    ErrorScene() {
        writeAudio(folder / "stereo.wav", makeTestSignal(2, 44100, 4410));
        WriteWholeFile(folder / "notes.txt", "not audio, not a plug-in, not a bank\n");
        WriteWholeFile(folder / "out.wav", kPrecious);
        WriteWholeFile(folder / "out.png", kPrecious);
        std::filesystem::create_directory(folder / "sub");
        WriteWholeFile(folder / "foreign.fxb", ChunkBank("", "Othr"));
    }
};

struct ErrorCase {
    const char* name;
    // Words of the command line; "@name" is that file in the scene's folder. Without a
    // --plugin of its own the case runs on the pass-through fixture.
    const char* arguments;
    const char* expectedMessage;
    int expectedExit;
};

std::vector<std::string> argumentsOf(const ErrorCase& error, const TempFolder& folder) {
    std::vector<std::string> words;
    if (std::string(error.arguments).rfind("--plugin", 0) != 0) {
        words = {"--plugin", FIXTURE_PASS_THROUGH};
    }
    std::istringstream text(error.arguments);
    for (std::string word; text >> word;) {
        words.push_back(word[0] == '@' ? folder / word.substr(1) : word);
    }
    return words;
}

const ErrorCase kCases[] = {
    {"MissingInput", "render @absent.wav @out.wav", "cannot read", 1},
    {"InputIsAFolder", "render @sub @out.wav", "it is a folder", 1},
    {"InputIsNotAudio", "render @notes.txt @out.wav", "is not an audio file", 1},
    {"PluginMissing", "--plugin @absent.so render @stereo.wav @out.wav", "cannot read plug-in", 1},
    {"PluginIsNotASharedObject", "--plugin @notes.txt render @stereo.wav @out.wav",
     "is not a VST 2.4 plug-in", 1},
    {"PluginWithoutEntryPoint", "--plugin " FIXTURE_NO_ENTRY " render @stereo.wav @out.wav",
     "exports neither VSTPluginMain nor main", 1},
    {"EntryPointReturnsNull", "--plugin " FIXTURE_NULL_ENTRY " render @stereo.wav @out.wav",
     "entry point returned no effect", 1},
    {"RecordWithWrongMagic", "--plugin " FIXTURE_BAD_MAGIC " render @stereo.wav @out.wav",
     "wrong magic number", 1},
    {"UnknownParameterName", "render @stereo.wav @out.wav --set Volume=3",
     "unknown parameter 'Volume'", 1},
    {"NumberNoStateDisplays", "render @stereo.wav @out.wav --set Gain=+30",
     "no setting of Gain displays '+30'", 1},
    {"NormalisedValueOutOfRange", "render @stereo.wav @out.wav --set Gain=1.5n", "outside 0..1", 1},
    {"OutputFolderMissing", "render @stereo.wav @missing/out.wav", "cannot write", 1},
    {"OutputIsAFolder", "render @stereo.wav @sub", "it is a folder", 1},
    {"OutputExtensionNamesNoFormat", "render @stereo.wav @out.xyz", "cannot tell an audio format",
     1},
    {"DoublePrecisionThePluginLacks", "render @stereo.wav @out.wav --double",
     "no 64-bit process call", 1},
    {"PlotToMissingFolder", "plot @missing/out.png", "cannot write", 1},
    {"BankForAnotherPlugin", "render @stereo.wav @out.wav --bank @foreign.fxb",
     "belongs to plug-in 'Othr', not to 'Fixt'", 1},
    {"ProgramOutOfRange", "render @stereo.wav @out.wav --program 5", "program 5 does not exist", 1},
    {"EditorOfAPluginWithout", "editor --screenshot @out.png", "Fixture has no editor", 1},
    {"UnknownCommand", "mix", "unknown command 'mix'", 2}};

class CommandErrors : public testing::TestWithParam<ErrorCase> {};

TEST_P(CommandErrors, FailWithOneLineAndLeaveOutputsAlone) {
    ErrorScene scene;
    const std::vector<std::string> before = entriesOf(scene.folder.Path());

    const ToolRun run = runZephyra(argumentsOf(GetParam(), scene.folder));

    EXPECT_EQ(run.exitCode, GetParam().expectedExit);
    const std::vector<std::string> lines = linesOf(run.err);
    ASSERT_EQ(lines.size(), 1u) << run.err;
    EXPECT_EQ(lines[0].rfind("zephyra: ", 0), 0u) << lines[0];
    EXPECT_NE(lines[0].find(GetParam().expectedMessage), std::string::npos) << lines[0];
    EXPECT_EQ(run.out, "");
    // No temporary file left behind, nothing new, the earlier outputs as they were.
    EXPECT_EQ(entriesOf(scene.folder.Path()), before);
    EXPECT_EQ(ReadWholeFile(scene.folder / "out.wav"), kPrecious);
    EXPECT_EQ(ReadWholeFile(scene.folder / "out.png"), kPrecious);
}

INSTANTIATE_TEST_SUITE_P(Tool, CommandErrors, testing::ValuesIn(kCases),
                         [](const testing::TestParamInfo<ErrorCase>& info) {
                             return std::string(info.param.name);
                         });

TEST(CommandInterrupted, LeavesNeitherATemporaryFileNorADamagedOutput) {
    ErrorScene scene;
    const std::vector<std::string> before = entriesOf(scene.folder.Path());
    // Ten minutes of tail in small blocks: still running when Ctrl-C arrives.
    const ToolRun run = runZephyra({"--plugin", FIXTURE_PASS_THROUGH, "render", "--demo",
                                    scene.folder / "out.wav", "--tail", "600", "--block", "16"},
                                   500);
    EXPECT_EQ(run.exitCode, 128 + SIGINT);
    EXPECT_EQ(entriesOf(scene.folder.Path()), before);
    EXPECT_EQ(ReadWholeFile(scene.folder / "out.wav"), kPrecious);
}

TEST(CommandSuccess, ReplacesAnExistingOutputOnlyWhenDone) {
    ErrorScene scene;
    const ToolRun run =
        runZephyra({"--plugin", FIXTURE_PASS_THROUGH, "render", scene.folder / "stereo.wav",
                    scene.folder / "out.wav", "--set", "Gain=-6", "--tail", "0"});
    ASSERT_EQ(run.exitCode, 0) << run.err;
    const TestAudio input = readAudio(scene.folder / "stereo.wav");
    const TestAudio output = readAudio(scene.folder / "out.wav");
    ASSERT_EQ(output.frames(), input.frames());
    const double gain = std::pow(10.0, -6.0 / 20.0);
    for (int64_t frame = 0; frame < input.frames(); frame += 97) {
        EXPECT_NEAR(output.at(frame, 1), input.at(frame, 1) * gain, 1e-6);
    }
    const std::vector<std::string> expected = {"foreign.fxb", "notes.txt",  "out.png",
                                               "out.wav",     "stereo.wav", "sub"};
    EXPECT_EQ(entriesOf(scene.folder.Path()), expected);
}

} // namespace
