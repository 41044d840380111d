// The panel under the user's hands (drags, clicks, typed values, the copy menu, the save dialog,
// the lamp), checked through the effect's state and what the host is told.
#include "editor/CPresetSaveDlg.h"
#include "editor/UIWindowLayout.h"
#include "tests/editor/EditorHost.h"
#include "toolkit/CComboBox.h"
#include "toolkit/PopupListWnd.h"
#include "toolkit/WinControlIds.h"
#include "toolkit/platform/KeyCodes.h"

#include <functional>
#include <gtest/gtest.h>
#include <vector>

namespace {

constexpr int kAutomate = audioMasterAutomate;
constexpr int kUpdateDisplay = 42;
// What the host was told by automation: index and value, in order.
using Told = std::vector<std::pair<int, float>>;

class PanelInteraction : public EditorHost {
protected:
    void SetUp() override {
        EditorHost::SetUp();
        Open();
        host.calls.clear();
    }

    void Click(CPoint point) { driver.Click(&Panel(), point); }
    void Click(const RECT& rect) { Click(CRect(rect).CenterPoint()); }

    Told Automation() const {
        Told told;
        for (const HostCall& call : host.calls) {
            if (call.opcode == kAutomate)
                told.emplace_back(call.index, call.opt);
        }
        return told;
    }

    // Opens the entry over a read-out, types and ends with Return.
    void TypeInto(const EntryLayout& entry, const char* typed) {
        Click(entry.readout);
        ASSERT_EQ(Panel().GetEditTarget(), entry.target);
        driver.Type(typed);
        driver.Key(kKeyReturn, kCharReturn);
    }

    const EntryLayout& Entry(int parameter) {
        return *std::find_if(
            std::begin(kEntryLayout), std::end(kEntryLayout),
            [&](const EntryLayout& entry) { return entry.parameter == parameter; });
    }
    static CString Text(const CWnd* window) {
        CString text;
        if (window)
            window->GetWindowText(text);
        return text;
    }

    // The copy menu, open after the click has returned.
    PopupListWnd* OpenCopyMenu() {
        Click(kCopyButtonLayout.rect);
        return PopupListWnd::Active();
    }

    // The save dialog, open after the click has returned.
    CPresetSaveDlg* OpenSaveDialog() {
        Click(kSaveButtonRect);
        CWnd* focus = CWnd::GetFocus();
        return focus ? dynamic_cast<CPresetSaveDlg*>(focus->GetParent()) : nullptr;
    }

    // Program 3 holds a gain of 0.9 where the current program holds the given gain.
    void GiveProgramThreeAnotherGain(int current, float gain) {
        effect.setProgram(3);
        effect.setParameter(kParamGain1, 0.9f);
        effect.setProgram(current);
        effect.setParameter(kParamGain1, gain);
        Idle();
        host.calls.clear();
    }

    // Works the open dialog with the step; its end is reported at the next pump.
    void WithSaveDialog(const std::function<void(CPresetSaveDlg&)>& step) {
        CPresetSaveDlg* dialog = OpenSaveDialog();
        ASSERT_NE(dialog, nullptr);
        step(*dialog);
        driver.Pump();
    }

    std::string BankFile() { return ReadWholeFile(preferences / "ZephyraDef.fxb"); }
};

TEST_F(PanelInteraction, AKnobDragSetsTheEffectAndTellsTheHostOnEveryMove) {
    const CRect knob(kKnobLayout[0].control);
    const CPoint centre = knob.CenterPoint();
    driver.Press(&Panel(), CPoint(knob.left, centre.y));     // left: 0.2
    driver.Move(&Panel(), CPoint(centre.x, knob.top));       // up: 0.5
    driver.Move(&Panel(), CPoint(knob.right - 1, centre.y)); // right
    driver.Release(&Panel(), CPoint(knob.right - 1, centre.y));
    const auto told = Automation();
    ASSERT_EQ(told.size(), 4u) << "the press, two moves and the release";
    EXPECT_EQ(told[0].first, kParamGain1);
    EXPECT_NEAR(told[0].second, 0.2f, 1e-6);
    EXPECT_NEAR(told[1].second, 0.5f, 1e-6);
    EXPECT_GT(told[2].second, 0.79f);
    EXPECT_EQ(told[3], told[2]);
    EXPECT_FLOAT_EQ(effect.getParameter(kParamGain1), told[3].second);
    EXPECT_EQ(CWnd::GetCapture(), nullptr);
}

TEST_F(PanelInteraction, ASliderTellsTheHostOnlyWhenItsValueChanges) {
    const CRect track(kSliderLayout[0].control);
    driver.Press(&Panel(), CPoint(track.left + 4, track.top + 64));
    driver.Move(&Panel(), CPoint(track.left + 9, track.top + 64));
    driver.Move(&Panel(), CPoint(track.left + 9, track.top + 30));
    driver.Release(&Panel(), CPoint(track.left + 9, track.top + 30));
    const auto told = Automation();
    ASSERT_EQ(told.size(), 2u);
    EXPECT_EQ(told[0].first, kParamInput);
    EXPECT_LT(told[0].second, told[1].second) << "higher on the track, more level";
    EXPECT_FLOAT_EQ(Panel().Slider(0).GetValue(), effect.getParameter(kParamInput));
}

TEST_F(PanelInteraction, TheTypeSwitchesOfABandAreRadioButtons) {
    Click(kTypeSwitchLayout[1].rect);
    EXPECT_EQ(Automation(), (Told{{kParamType1, 0.5f}}));
    char text[16] = {};
    effect.getParameterDisplay(kParamType1, text);
    EXPECT_STREQ(text, "PEAK");
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(Panel().TypeSwitch(i).GetValue(), i == 1 || i == 3) << "the other band keeps its";

    Click(kTypeSwitchLayout[1].rect);
    EXPECT_EQ(Automation().size(), 1u) << "the lit switch tells nothing new";
    Click(kTypeSwitchLayout[5].rect);
    EXPECT_EQ(Automation().back(), (std::pair<int, float>{kParamType2, 1.0f}));
    EXPECT_FALSE(Panel().TypeSwitch(3).GetValue());
}

TEST_F(PanelInteraction, TheOnOffSwitchTogglesAndWithModifiersRevertsTheProgram) {
    const struct {
        const char* what;
        unsigned modifiers;
        bool factoryGain, on;
    } cases[] = {
        {"a plain click", 0, false, false},
        {"with Shift, the program's factory values", kModifierShift, true, true},
        {"with Control, the empty all-programs revert", kModifierControl, false, false},
        {"with both, only Shift's action", kModifierShift | kModifierControl, true, true},
    };
    for (const auto& c : cases) {
        effect.setParameter(kParamOnOff, 1.0f);
        effect.setParameter(kParamGain1, 0.9f);
        Idle();
        ASSERT_TRUE(Panel().OnOffSwitch().GetValue()) << c.what;
        host.calls.clear();
        driver.SetModifiers(c.modifiers);
        Click(kOnOffSwitchLayout.rect);
        driver.SetModifiers(0);
        ASSERT_FALSE(Automation().empty()) << c.what;
        EXPECT_EQ(Automation().front(), (std::pair<int, float>{kParamOnOff, 0.0f})) << c.what;
        EXPECT_FLOAT_EQ(effect.getParameter(kParamGain1), c.factoryGain ? 0.5f : 0.9f) << c.what;
        EXPECT_EQ(Panel().OnOffSwitch().GetValue(), c.on) << c.what;
        EXPECT_FLOAT_EQ(Panel().Knob(0).GetValue(), effect.getParameter(kParamGain1)) << c.what;
    }
    host.calls.clear();
    driver.DoubleClick(&Panel(), CRect(kOnOffSwitchLayout.rect).CenterPoint());
    EXPECT_EQ(Automation().size(), 2u) << "a double click presses twice";
    EXPECT_TRUE(Panel().OnOffSwitch().GetValue());
}

TEST_F(PanelInteraction, TypedValuesArriveInTenthsNudgedAwayFromZeroAndClamped) {
    const struct {
        int parameter;
        const char* typed;
        float handed; // the display value the effect receives
    } cases[] = {
        {kParamGain1, "-0.3", -0.305f},
        {kParamGain1, "-3", -3.005f},
        {kParamFreq2, "2500", 2500.005f},
        {kParamQ1, "250", 10.0f}, // 25.005 and more, held at the Q's maximum
        {kParamOutput, "-99", -59.794706f},
        {kParamInput, "3", 0.0f},
    };
    for (const auto& c : cases) {
        host.calls.clear();
        TypeInto(Entry(c.parameter), c.typed);
        const float bias = c.handed < 0.0f ? -0.05f : 0.05f;
        EXPECT_NEAR(effect.getParameterDisplayVal(c.parameter) - bias, c.handed, 1e-4) << c.typed;
        float normalised = 0.0f;
        for (const auto& [index, value] : Automation()) {
            if (index == c.parameter)
                normalised = value;
        }
        EXPECT_FLOAT_EQ(normalised, effect.getParameter(c.parameter)) << c.typed;
        EXPECT_EQ(Panel().GetEditTarget(), kNoEntry);
        EXPECT_FALSE(Panel().EntryWindow().IsWindowVisible());
    }
    EXPECT_FLOAT_EQ(Panel().Knob(2).GetValue(), 1.0f) << "the Q1 knob followed";
}

TEST_F(PanelInteraction, TheEntryOpensOverItsReadoutAndAClickElsewhereAbandonsIt) {
    effect.setParameter(kParamFreq1, 0.5f);
    Idle();
    const float before = effect.getParameter(kParamGain1);
    Click(kKnobLayout[1].readout);
    EXPECT_TRUE(Panel().EntryWindow().IsWindowVisible());
    EXPECT_EQ(Text(&Panel().EntryWindow().GetEdit()), "10010.0");
    CRect place;
    Panel().EntryWindow().GetWindowRect(&place);
    EXPECT_EQ(place.TopLeft(), CPoint(kHostLeft + kKnobLayout[1].readout.left + 1, kHostTop + 91));

    Click(kKnobLayout[0].readout);
    driver.Type("5");
    Click(CPoint(140, 20));
    EXPECT_EQ(Panel().GetEditTarget(), kNoEntry);
    EXPECT_FALSE(Panel().EntryWindow().IsWindowVisible());
    driver.Key(kKeyReturn, kCharReturn);
    EXPECT_FLOAT_EQ(effect.getParameter(kParamGain1), before);
    EXPECT_TRUE(Automation().empty());
}

TEST_F(PanelInteraction, TheCopyMenuCopiesAnotherProgramIntoTheOneCurrentWhenChosen) {
    GiveProgramThreeAnotherGain(2, 0.2f);
    PopupListWnd* menu = OpenCopyMenu();
    ASSERT_NE(menu, nullptr);
    EXPECT_TRUE(Panel().CopyButton().GetValue()) << "shown pressed while open";
    driver.Click(menu, menu->ItemRect(2).CenterPoint());
    driver.Pump();
    ASSERT_EQ(PopupListWnd::Active(), menu) << "still open after a click on the current program";
    Idle();
    Dispatch(effSetProgram, 0, 1);
    effect.setParameter(kParamQ1, 0.3f);
    Idle();
    EXPECT_EQ(PopupListWnd::Active(), menu) << "still open";
    host.calls.clear();
    driver.Click(menu, menu->ItemRect(3).CenterPoint());
    Idle();
    EXPECT_EQ(host.Count(kUpdateDisplay), 1u) << "one copy";
    EXPECT_EQ(effect.getProgram(), 1);
    EXPECT_FLOAT_EQ(effect.getParameter(kParamGain1), 0.9f);
    EXPECT_FLOAT_EQ(Panel().Knob(0).GetValue(), 0.9f);
    EXPECT_FALSE(Panel().CopyButton().GetValue());
}

// The host closes the editor with the menu or the dialog open (closing the effect takes the
// panel the same way): they go with it and nothing they would have done is done.
TEST_F(PanelInteraction, ClosingTheEditorTakesAnOpenMenuOrDialogAlongUnapplied) {
    GiveProgramThreeAnotherGain(0, 0.1f);
    PopupListWnd* menu = OpenCopyMenu();
    ASSERT_NE(menu, nullptr);
    driver.Click(menu, menu->ItemRect(3).CenterPoint());
    Dispatch(effEditClose);
    EXPECT_EQ(PopupListWnd::Active(), nullptr);
    driver.Pump();
    EXPECT_FLOAT_EQ(effect.getParameter(kParamGain1), 0.1f) << "the choice was not applied";

    Open();
    ASSERT_NE(OpenSaveDialog(), nullptr);
    driver.Key(kKeyReturn, kCharReturn);
    Dispatch(effEditClose);
    EXPECT_EQ(CWnd::GetFocus(), nullptr) << "the dialog has gone";
    driver.Pump();
    EXPECT_TRUE(BankFile().empty()) << "nothing saved";
}

// The dialog lists the programs, offers the current one's name and replaces a typed name
// with the name of another program chosen; Escape cancels it and nothing is saved.
TEST_F(PanelInteraction, TheSaveDialogOffersTheChosenProgramsNameAndEscapeSavesNothing) {
    effect.setProgram(2);
    char japanese[] = "\x83\x65\x83\x58\x83\x67"; // in Shift-JIS
    effect.setProgramName(japanese);
    effect.setProgram(4);
    char kick[] = "Kick";
    effect.setProgramName(kick);
    effect.setProgram(1);
    WithSaveDialog([this](CPresetSaveDlg& dialog) {
        auto* list = dynamic_cast<CComboBox*>(dialog.GetDlgItem(CPresetSaveDlg::kProgramListId));
        ASSERT_NE(list, nullptr);
        EXPECT_EQ(list->GetCount(), 64);
        std::vector<std::string> entries;
        for (int index : {0, 2, 63}) {
            CString entry;
            list->GetLBText(index, entry);
            entries.emplace_back(entry.GetString());
        }
        // The Shift-JIS name shown in UTF-8.
        EXPECT_EQ(entries, (std::vector<std::string>{
                               "1:Empty", "3:\xE3\x83\x86\xE3\x82\xB9\xE3\x83\x88", "64:Empty"}));
        EXPECT_EQ(list->GetCurSel(), 1);
        CWnd* name = dialog.GetDlgItem(CPresetSaveDlg::kNameFieldId);
        EXPECT_EQ(Text(name), "Empty") << "the current program's name";
        name->SetWindowText("typed");
        for (int step = 0; step < 3; ++step)
            driver.Key(kKeyDown, 0);
        EXPECT_EQ(Text(name), "Kick");
        driver.Key(kKeyEscape, kCharEscape);
    });
    EXPECT_STREQ(effect.GetProgramNameBytes(1), "Empty");
    EXPECT_STREQ(effect.GetProgramNameBytes(4), "Kick");
    EXPECT_TRUE(BankFile().empty()) << "no bank file written";
}

// The cut itself is tested on its own below; here the name goes the whole way.
TEST_F(PanelInteraction, ALongNameIsSavedInShiftJisCutWithoutHalfACharacter) {
    WithSaveDialog([](CPresetSaveDlg& dialog) {
        dialog.SetDlgItemText(CPresetSaveDlg::kNameFieldId,
                              "abcdefghijklmnopqrstuv\xE3\x83\x86\xE3\x82\xB9");
        dialog.OnOK();
    });
    EXPECT_STREQ(effect.GetProgramNameBytes(0), "abcdefghijklmnopqrstuv");
}

TEST_F(PanelInteraction, ASaveThatCannotWriteTheBankFileSaysSoOverThePanel) {
    // A folder where the file should be: the write fails even for a privileged user.
    std::filesystem::create_directory(preferences / "ZephyraDef.fxb");
    WithSaveDialog([](CPresetSaveDlg& dialog) { dialog.OnOK(); });
    CWnd* focus = CWnd::GetFocus();
    ASSERT_NE(focus, nullptr) << "a message box is up";
    EXPECT_EQ(Text(focus->GetParent()->GetDlgItem(0xFFFF)),
              "The default bank file could not be written.");
    EXPECT_EQ(focus->GetParent()->GetParent(), &Panel()) << "shown over the panel";
}

TEST_F(PanelInteraction, TheLampLightsAfterAnEditAndAClickOnItRevertsTheProgram) {
    effect.open();
    Idle();
    const CQMTBitmap& lamp = Load(kBitmapProgramLamp);
    ASSERT_FALSE(effect.IsProgramChanged());
    EXPECT_EQ(Differences(kProgramLampRect, lamp), 0);
    EXPECT_EQ(Differences(kSaveButtonRect, Load(kBitmapSave)), 0);
    Click(kTypeSwitchLayout[4].rect);
    Idle();
    EXPECT_TRUE(effect.IsProgramChanged());
    EXPECT_EQ(Differences(kProgramLampRect, lamp, 0, lamp.Height() / 2), 0);
    Click(kProgramLampRect);
    Idle();
    EXPECT_FALSE(effect.IsProgramChanged());
    EXPECT_EQ(Differences(kProgramLampRect, lamp), 0);
    EXPECT_TRUE(Panel().TypeSwitch(5).GetValue()) << "the band went back to its stored type";
    EXPECT_FALSE(Panel().TypeSwitch(4).GetValue());
}

TEST(ProgramName, IsCutToTwentyThreeBytesWithoutHalfACharacter) {
    const std::string twentyTwo(22, 'a');
    const struct {
        std::string name, stored;
    } cases[] = {
        {"short", "short"},
        {std::string(23, 'b'), std::string(23, 'b')},
        {std::string(30, 'c'), std::string(23, 'c')},
        {twentyTwo + "\x83\x65", twentyTwo},
        {twentyTwo + "\xB1", twentyTwo}, // a one-byte kana counts as a lead byte here
        {twentyTwo.substr(1) + "\x83\x65", twentyTwo.substr(1) + "\x83\x65"},
        {"", ""},
    };
    for (const auto& c : cases)
        EXPECT_EQ(std::string(CutProgramName(c.name.c_str()).GetString()), c.stored) << c.name;
}

} // namespace
