// Every way a command can fail must end the same way: one line on stderr, a non-zero exit,
// and no output file written, half-written or destroyed.
#include "tests/tools/TestAudio.h"
#include "tests/tools/ToolRunner.h"

#include <cmath>
#include <csignal>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>

namespace {

const std::string kPrecious = "an earlier result that must survive";

// The folder every case starts from: a stereo and a three-channel input, a text file, a
// sub-folder, and an existing output that a failed run must leave alone.
struct ErrorScene {
    ScratchFolder folder;
    ErrorScene() {
        writeAudio(folder.file("stereo.wav"), makeTestSignal(2, 44100, 4410));
        writeAudio(folder.file("three.wav"), makeTestSignal(3, 44100, 4410));
        writeText(folder.file("notes.txt"), "not audio, not a plug-in, not a bank\n");
        writeText(folder.file("out.wav"), kPrecious);
        writeText(folder.file("out.png"), kPrecious);
        std::filesystem::create_directory(folder.file("sub"));
        writeForeignBank(folder.file("foreign.fxb"));
    }

    // A well-formed chunk bank made for a plug-in with another identifier.
    static void writeForeignBank(const std::string& path) {
        std::string bank(160, '\0');
        bank.replace(0, 4, "CcnK");
        bank.replace(8, 4, "FBCh");
        bank.replace(16, 4, "Othr");
        writeText(path, bank);
    }
};

struct ErrorCase {
    const char* name;
    std::function<std::vector<std::string>(const ScratchFolder&)> arguments;
    const char* expectedMessage;
    int expectedExit;
};

std::vector<std::string> withFixture(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), {"--plugin", FIXTURE_PASS_THROUGH});
    return arguments;
}

const ErrorCase kCases[] = {
    {"MissingInput",
     [](const ScratchFolder& f) {
         return withFixture({"render", f.file("absent.wav"), f.file("out.wav")});
     },
     "cannot read", 1},
    {"InputIsAFolder",
     [](const ScratchFolder& f) {
         return withFixture({"render", f.file("sub"), f.file("out.wav")});
     },
     "it is a folder", 1},
    {"InputIsNotAudio",
     [](const ScratchFolder& f) {
         return withFixture({"render", f.file("notes.txt"), f.file("out.wav")});
     },
     "is not an audio file", 1},
    {"PluginMissing",
     [](const ScratchFolder& f) {
         return std::vector<std::string>{"--plugin", f.file("absent.so"), "render",
                                         f.file("stereo.wav"), f.file("out.wav")};
     },
     "cannot read plug-in", 1},
    {"PluginIsNotASharedObject",
     [](const ScratchFolder& f) {
         return std::vector<std::string>{"--plugin", f.file("notes.txt"), "render",
                                         f.file("stereo.wav"), f.file("out.wav")};
     },
     "is not a VST 2.4 plug-in", 1},
    {"PluginWithoutEntryPoint",
     [](const ScratchFolder& f) {
         return std::vector<std::string>{"--plugin", FIXTURE_NO_ENTRY, "render",
                                         f.file("stereo.wav"), f.file("out.wav")};
     },
     "exports neither VSTPluginMain nor main", 1},
    {"EntryPointReturnsNull",
     [](const ScratchFolder& f) {
         return std::vector<std::string>{"--plugin", FIXTURE_NULL_ENTRY, "render",
                                         f.file("stereo.wav"), f.file("out.wav")};
     },
     "entry point returned no effect", 1},
    {"RecordWithWrongMagic",
     [](const ScratchFolder& f) {
         return std::vector<std::string>{"--plugin", FIXTURE_BAD_MAGIC, "render",
                                         f.file("stereo.wav"), f.file("out.wav")};
     },
     "wrong magic number", 1},
    {"ChannelsThePluginCannotTake",
     [](const ScratchFolder& f) {
         return withFixture({"render", f.file("three.wav"), f.file("out.wav")});
     },
     "a 3-channel signal cannot feed it", 1},
    {"UnknownParameterName",
     [](const ScratchFolder& f) {
         return withFixture(
             {"render", f.file("stereo.wav"), f.file("out.wav"), "--set", "Volume=3"});
     },
     "unknown parameter 'Volume'", 1},
    {"NumberNoStateDisplays",
     [](const ScratchFolder& f) {
         return withFixture(
             {"render", f.file("stereo.wav"), f.file("out.wav"), "--set", "Gain=+30"});
     },
     "no setting of Gain displays '+30'", 1},
    {"WordNoStateDisplays",
     [](const ScratchFolder& f) {
         return withFixture(
             {"render", f.file("stereo.wav"), f.file("out.wav"), "--set", "Mode=MIDDLE"});
     },
     "no setting of Mode displays 'MIDDLE'", 1},
    {"NormalisedValueOutOfRange",
     [](const ScratchFolder& f) {
         return withFixture(
             {"render", f.file("stereo.wav"), f.file("out.wav"), "--set", "Gain=1.5n"});
     },
     "outside 0..1", 1},
    {"OutputFolderMissing",
     [](const ScratchFolder& f) {
         return withFixture({"render", f.file("stereo.wav"), f.file("missing/out.wav")});
     },
     "cannot write", 1},
    {"OutputIsAFolder",
     [](const ScratchFolder& f) {
         return withFixture({"render", f.file("stereo.wav"), f.file("sub")});
     },
     "it is a folder", 1},
    {"OutputExtensionNamesNoFormat",
     [](const ScratchFolder& f) {
         return withFixture({"render", f.file("stereo.wav"), f.file("out.xyz")});
     },
     "cannot tell an audio format", 1},
    {"DoublePrecisionThePluginLacks",
     [](const ScratchFolder& f) {
         return withFixture({"render", f.file("stereo.wav"), f.file("out.wav"), "--double"});
     },
     "no 64-bit process call", 1},
    {"PlotToMissingFolder",
     [](const ScratchFolder& f) {
         return withFixture({"plot", f.file("missing/out.png")});
     },
     "cannot write", 1},
    {"PlotWithUnknownParameter",
     [](const ScratchFolder& f) {
         return withFixture({"plot", f.file("out.png"), "--set", "Volume=3"});
     },
     "unknown parameter", 1},
    {"BankForAnotherPlugin",
     [](const ScratchFolder& f) {
         return withFixture(
             {"render", f.file("stereo.wav"), f.file("out.wav"), "--bank", f.file("foreign.fxb")});
     },
     "belongs to plug-in 'Othr', not to 'Fixt'", 1},
    {"BankThatIsNoBank",
     [](const ScratchFolder& f) {
         return withFixture(
             {"render", f.file("stereo.wav"), f.file("out.wav"), "--bank", f.file("notes.txt")});
     },
     "is not a VST bank file", 1},
    {"ProgramOutOfRange",
     [](const ScratchFolder& f) {
         return withFixture({"render", f.file("stereo.wav"), f.file("out.wav"), "--program", "5"});
     },
     "program 5 does not exist", 1},
    {"EditorOfAPluginWithout",
     [](const ScratchFolder& f) {
         return withFixture({"editor", "--screenshot", f.file("out.png")});
     },
     "Fixture has no editor", 1},
    {"UnknownOption",
     [](const ScratchFolder& f) {
         return withFixture({"render", f.file("stereo.wav"), f.file("out.wav"), "--volume", "3"});
     },
     "unknown option --volume", 2},
    {"UnknownCommand", [](const ScratchFolder&) { return withFixture({"mix"}); },
     "unknown command 'mix'", 2},
};

class CommandErrors : public testing::TestWithParam<ErrorCase> {};

TEST_P(CommandErrors, FailWithOneLineAndLeaveOutputsAlone) {
    ErrorScene scene;
    const std::vector<std::string> before = scene.folder.entries();

    const ToolRun run = runZephyra(GetParam().arguments(scene.folder));

    EXPECT_EQ(run.exitCode, GetParam().expectedExit);
    const std::vector<std::string> lines = linesOf(run.err);
    ASSERT_EQ(lines.size(), 1u) << run.err;
    EXPECT_EQ(lines[0].rfind("zephyra: ", 0), 0u) << lines[0];
    EXPECT_NE(lines[0].find(GetParam().expectedMessage), std::string::npos) << lines[0];
    EXPECT_EQ(run.out, "");
    // No temporary file left behind, nothing new, the earlier outputs as they were.
    EXPECT_EQ(scene.folder.entries(), before);
    EXPECT_EQ(readText(scene.folder.file("out.wav")), kPrecious);
    EXPECT_EQ(readText(scene.folder.file("out.png")), kPrecious);
}

INSTANTIATE_TEST_SUITE_P(Tool, CommandErrors, testing::ValuesIn(kCases),
                         [](const testing::TestParamInfo<ErrorCase>& info) {
                             return std::string(info.param.name);
                         });

TEST(CommandInterrupted, LeavesNeitherATemporaryFileNorADamagedOutput) {
    ErrorScene scene;
    const std::vector<std::string> before = scene.folder.entries();
    // Ten minutes of tail in small blocks: still running when Ctrl-C arrives.
    const ToolRun run =
        runZephyraInterrupted(withFixture({"render", "--demo", scene.folder.file("out.wav"),
                                           "--tail", "600", "--block", "16"}),
                              500);
    EXPECT_EQ(run.exitCode, 128 + SIGINT);
    EXPECT_EQ(scene.folder.entries(), before);
    EXPECT_EQ(readText(scene.folder.file("out.wav")), kPrecious);
}

TEST(CommandSuccess, ReplacesAnExistingOutputOnlyWhenDone) {
    ErrorScene scene;
    const ToolRun run =
        runZephyra(withFixture({"render", scene.folder.file("stereo.wav"),
                                scene.folder.file("out.wav"), "--set", "Gain=-6", "--tail", "0"}));
    ASSERT_EQ(run.exitCode, 0) << run.err;
    const TestAudio input = readAudio(scene.folder.file("stereo.wav"));
    const TestAudio output = readAudio(scene.folder.file("out.wav"));
    ASSERT_EQ(output.frames(), input.frames());
    const double gain = std::pow(10.0, -6.0 / 20.0);
    for (int64_t frame = 0; frame < input.frames(); frame += 97) {
        EXPECT_NEAR(output.at(frame, 1), input.at(frame, 1) * gain, 1e-6);
    }
    std::vector<std::string> expected = {"foreign.fxb", "notes.txt", "out.png",  "out.wav",
                                         "stereo.wav",  "sub",       "three.wav"};
    EXPECT_EQ(scene.folder.entries(), expected);
}

} // namespace
