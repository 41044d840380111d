// A host idling the editor from its own UI thread at 30 Hz while a user works the copy menu and
// the save dialog: neither may hold the host in the call that opened it, nor lose typed keys.
#include "editor/UIWindowLayout.h"
#include "tests/editor/BankRecords.h"
#include "tests/editor/DesktopDriver.h"
#include "tests/editor/UiThreadHost.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <future>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace {

using namespace std::chrono_literals;

// Phases of the user's session; a host call counts in every phase it spans. The host must
// answer in each from the menu's opening to the dialog's OK.
enum Phase : int { kOpening, kMenuOpen, kChoiceMade, kDialogOpen, kDialogOk, kClosing };
const char* const kPhaseNames[] = {"opening",     "menu open", "choice made",
                                   "dialog open", "OK",        "closing"};

// Longer than any call of a responsive host, far shorter than a menu held open.
constexpr double kLongestAllowedCallMs = 1000.0;
// How long the user keeps the menu or a dialog open.
constexpr auto kHeldOpen = 1500ms;
// Time for the editor to take in a step, many idle calls long.
constexpr auto kSettle = 500ms;
// The most any window or host call is waited for.
constexpr auto kPatience = 5s;

constexpr float kAutomatedGain = 0.25f;
constexpr float kAutomatedFrequency = 0.375f;

// The toolkit's windows: the menu is a pop-up of its own class, the dialog has its title.
const std::string kMenu = "--onlyvisible --class '^ZephyraPopup$'";
const std::string kSaveDialog = "--onlyvisible --name '^Save Program$'";
// The save dialog's OK button, as its layout places it below the 28-pixel caption the
// toolkit draws.
constexpr int kOkX = 244;
constexpr int kButtonY = 135;

std::string ClickOn(const std::string& window, const RECT& rect) {
    return ClickAt(window, (rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2);
}

// The values a program's record holds, with one parameter replaced.
std::vector<float> ValuesOf(const ZephyraProgramRecord& record, int changed = -1,
                            float value = 0.0f) {
    std::vector<float> values(record.param, record.param + kNumParams);
    if (changed >= 0)
        values[static_cast<std::size_t>(changed)] = value;
    return values;
}

// Waits for a file with content; what it holds then, empty when none came in time.
std::string WaitForFile(const std::string& path) {
    const auto end = std::chrono::steady_clock::now() + kPatience;
    std::string bytes = ReadWholeFile(path);
    while (bytes.empty() && std::chrono::steady_clock::now() < end) {
        std::this_thread::sleep_for(100ms);
        bytes = ReadWholeFile(path);
    }
    return bytes;
}

// The host on its own thread with the editor open, the user's preferences in a private
// folder, and the longest calls reported whatever happens.
class HostResponsiveness : public ::testing::Test {
protected:
    void SetUp() override {
        if (const char* missing = MissingDesktop())
            GTEST_SKIP() << missing;
        ASSERT_FALSE(factory.empty()) << "the factory bank ships beside the module";
        host = std::make_unique<UiThreadHost>(ZEPHYRA_MODULE, kClosing + 1);
        ASSERT_EQ(host->WaitUntilOpen(10s), "");
        window = std::to_string(host->Window());
        std::this_thread::sleep_for(kSettle);
    }

    void TearDown() override {
        if (!host)
            return;
        host->EnterPhase(kClosing);
        // A step that failed may leave the menu or a dialog open; where it runs inside a host
        // call, the host could not close the editor and end its thread until it goes.
        for (const std::string& search : {kMenu, kSaveDialog}) {
            if (!FindWindow(search, 0ms).empty()) {
                RunCommand("xdotool key Escape");
                std::this_thread::sleep_for(kSettle);
            }
        }
        std::printf("Longest host call (ms):");
        for (int phase = kMenuOpen; phase <= kDialogOk; ++phase)
            std::printf(" %s %.0f;", kPhaseNames[phase], host->LongestCallMs(phase));
        std::printf("\n");
    }

    // Keeps the menu or dialog open a while; the host's call must be made meanwhile.
    template <typename Result> void HoldOpen(std::future<Result>& hostCall, const char* what) {
        std::this_thread::sleep_for(kHeldOpen);
        EXPECT_EQ(hostCall.wait_for(0ms), std::future_status::ready)
            << "the host's call came while " << what << " was open";
    }

    // The user's closing step; then the window must go and the editor take it in.
    void CloseWith(const std::string& command, const std::string& search, const char* what) {
        ASSERT_TRUE(RunCommand(command));
        EXPECT_TRUE(WaitForNoWindow(search, kPatience)) << what << " closed its window";
        std::this_thread::sleep_for(kSettle);
    }

    // The copy menu, held open while the host automates a gain, then a program chosen from
    // it by keys: from the top, the keys pass the current program. What the copy did shows
    // in the program saved next.
    void CopyAProgramFromTheMenu() {
        host->EnterPhase(kMenuOpen);
        ASSERT_TRUE(RunCommand(ClickOn(window, kCopyButtonLayout.rect)));
        ASSERT_FALSE(FindWindow(kMenu, kPatience).empty()) << "the copy button opened the menu";
        auto automatedGain = host->Call<float>([](PluginInstance& plugin) {
            plugin.setParameter(kParamGain1, kAutomatedGain);
            return plugin.parameter(kParamGain1);
        });
        HoldOpen(automatedGain, "the menu");
        host->EnterPhase(kChoiceMade);
        ASSERT_NO_FATAL_FAILURE(CloseWith("xdotool key Home Down Return", kMenu, "the choice"));
    }

    // The save dialog, held open while the host automates a frequency; the sixth slot
    // chosen, a name typed (its capitals after a Tab), and OK.
    void SaveThroughTheDialog() {
        host->EnterPhase(kDialogOpen);
        ASSERT_TRUE(RunCommand(ClickOn(window, kSaveButtonRect)));
        const std::string dialog = FindWindow(kSaveDialog, kPatience);
        ASSERT_FALSE(dialog.empty()) << "the save button opened the dialog";
        auto automatedFrequency = host->Call<float>([](PluginInstance& plugin) {
            plugin.setParameter(kParamFreq1, kAutomatedFrequency);
            return plugin.parameter(kParamFreq1);
        });
        ASSERT_TRUE(RunCommand("xdotool key Down Down Down Down Down Tab"));
        ASSERT_TRUE(RunCommand("xdotool type 'Held Saved'"));
        HoldOpen(automatedFrequency, "the dialog");
        host->EnterPhase(kDialogOk);
        ASSERT_NO_FATAL_FAILURE(CloseWith(ClickAt(dialog, kOkX, kButtonY), kSaveDialog, "OK"));
        const std::string saved = WaitForFile(bankFile);
        ASSERT_FALSE(saved.empty()) << "OK wrote the user's bank file";
        const ZephyraProgramRecord record = RecordIn(saved, kSavedSlot);
        EXPECT_STREQ(record.name, "Held Saved");
        EXPECT_EQ(ValuesOf(record),
                  ValuesOf(RecordIn(factory, kCopiedProgram), kParamFreq1, kAutomatedFrequency))
            << "the program copied over the automated gain, with the frequency automated "
               "before OK";
    }

    TempFolder preferences;
    ScopedEnv preferencesFolder{"XDG_CONFIG_HOME", preferences.Path()};
    const std::string bankFile = preferences / "ZephyraDef.fxb";
    const std::string factory = ReadWholeFile(FactoryBankBeside(ZEPHYRA_MODULE));
    std::unique_ptr<UiThreadHost> host;
    std::string window;
};

TEST_F(HostResponsiveness, TheMenuAndTheSaveDialogLeaveTheHostsUiThreadFree) {
    ASSERT_NO_FATAL_FAILURE(CopyAProgramFromTheMenu());
    ASSERT_NO_FATAL_FAILURE(SaveThroughTheDialog());
    for (int phase = kMenuOpen; phase <= kDialogOk; ++phase) {
        EXPECT_LT(host->LongestCallMs(phase), kLongestAllowedCallMs)
            << "the host was held in one call while " << kPhaseNames[phase];
    }
}

} // namespace
