// Message maps: which entry of a class chain answers a message, commands by id, range and
// notification code, and how each handler signature unpacks its parameters.
#include "toolkit/CWnd.h"
#include "toolkit/MessageCache.h"
#include "toolkit/WinMessages.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

constexpr UINT kCustom = WM_USER + 7;
constexpr UINT kOtherCustom = WM_USER + 8;

// A base with handlers, a derived class overriding one of them, and a class without a map
// of its own: the map chain is what the dispatcher walks.
class BaseWnd : public CWnd {
public:
    std::vector<std::string> calls;

    LRESULT OnCustom(WPARAM wParam, LPARAM lParam) {
        calls.push_back("base custom");
        return static_cast<LRESULT>(wParam + lParam);
    }
    LRESULT OnOtherCustom(WPARAM, LPARAM) {
        calls.push_back("base other");
        return 5;
    }
    void OnPlay() { calls.push_back("play"); }
    void OnProgram(UINT id) { calls.push_back("program " + std::to_string(id)); }
    void OnListChanged() { calls.push_back("list changed"); }

    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(BaseWnd, CWnd)
ON_MESSAGE(kCustom, OnCustom)
ON_MESSAGE(kOtherCustom, OnOtherCustom)
ON_COMMAND(40, OnPlay)
ON_COMMAND_RANGE(1010, 1110, OnProgram)
ON_CBN_SELCHANGE(1120, OnListChanged)
END_MESSAGE_MAP()

class DerivedWnd : public BaseWnd {
public:
    LRESULT OnCustom(WPARAM, LPARAM) {
        calls.push_back("derived custom");
        return 99;
    }
    LRESULT OnCustomAgain(WPARAM, LPARAM) {
        calls.push_back("derived duplicate");
        return 98;
    }
    void OnSizeMessage(UINT type, int cx, int cy) {
        calls.push_back("size " + std::to_string(type) + " " + std::to_string(cx) + "x" +
                        std::to_string(cy));
    }
    void OnMoveMessage(int x, int y) {
        calls.push_back("move " + std::to_string(x) + "," + std::to_string(y));
    }
    void OnKeyDown(UINT key, UINT repeat, UINT flags) {
        calls.push_back("key " + std::to_string(key) + " " + std::to_string(repeat) + " " +
                        std::to_string(flags));
    }
    void OnMouseMove(UINT flags, CPoint point) {
        calls.push_back("mouse " + std::to_string(flags) + " " + std::to_string(point.x) + "," +
                        std::to_string(point.y));
    }
    void OnKillFocus(CWnd* newWnd) { calls.push_back(newWnd ? "focus to window" : "focus lost"); }

    DECLARE_MESSAGE_MAP()
};

// Kept as the entry arrays of real classes do: the second WM_USER + 7 entry is never reached.
// clang-format off
BEGIN_MESSAGE_MAP(DerivedWnd, BaseWnd)
ON_MESSAGE(kCustom, OnCustom)
ON_MESSAGE(kCustom, OnCustomAgain)
{WM_SIZE, 0, 0, 0, SigVoidUIntIntInt, AFX_HANDLER(void (CCmdTarget::*)(UINT, int, int), OnSizeMessage)},
{WM_MOVE, 0, 0, 0, SigVoidIntInt, AFX_HANDLER(void (CCmdTarget::*)(int, int), OnMoveMessage)},
ON_WM_KEYDOWN()
ON_WM_MOUSEMOVE()
ON_WM_KILLFOCUS()
END_MESSAGE_MAP()
    // clang-format on

    class MaplessWnd : public DerivedWnd {};

class MessageMapTest : public ::testing::Test {
protected:
    void SetUp() override { AfxResetMsgCache(); }
};

// Each class answers through the nearest entry in its chain; the cache is kept per map, so
// that one class's answer never serves another. A message no map handles goes to the default
// procedure, the second time through the cached miss.
TEST_F(MessageMapTest, NearestEntryInTheChainAnswers) {
    DerivedWnd derived;
    BaseWnd base;
    MaplessWnd mapless;
    EXPECT_EQ(derived.SendMessage(kCustom, 1, 2), 99);
    EXPECT_EQ(base.SendMessage(kCustom, 1, 2), 3);
    EXPECT_EQ(derived.SendMessage(kCustom, 0, 0), 99);
    EXPECT_EQ(mapless.SendMessage(kCustom, 0, 0), 99);
    EXPECT_EQ(derived.SendMessage(kOtherCustom, 0, 0), 5);
    for (int time = 0; time < 2; ++time)
        EXPECT_EQ(derived.SendMessage(WM_TIMER, 0, 0), -1);
    EXPECT_EQ(derived.calls,
              (std::vector<std::string>{"derived custom", "derived custom", "base other"}));
    EXPECT_EQ(base.calls, std::vector<std::string>{"base custom"});
}

// A command matches its id (or range) and its notification code; a handled one gives 0, one
// without id or control is not handled.
TEST_F(MessageMapTest, CommandsMatchIdRangeAndNotificationCode) {
    BaseWnd wnd;
    for (WPARAM id : {1009, 1010, 1042, 1110, 1111})
        wnd.SendMessage(WM_COMMAND, id, 0);
    EXPECT_EQ(wnd.SendMessage(WM_COMMAND, 40, 0), 0);
    wnd.SendMessage(WM_COMMAND, MAKEWPARAM(40, CBN_SELCHANGE), 0);
    wnd.SendMessage(WM_COMMAND, MAKEWPARAM(1120, CBN_SELCHANGE), 0);
    wnd.SendMessage(WM_COMMAND, 1120, 0);
    EXPECT_EQ(wnd.SendMessage(WM_COMMAND, 0, 0), -1);
    EXPECT_EQ(wnd.SendMessage(WM_NOTIFY, 40, 0), -1);
    EXPECT_EQ(wnd.calls, (std::vector<std::string>{"program 1010", "program 1042", "program 1110",
                                                   "play", "list changed"}));
}

TEST_F(MessageMapTest, SignaturesUnpackTheParameters) {
    DerivedWnd wnd;
    wnd.SendMessage(WM_SIZE, 2, MAKELPARAM(450, 210));
    wnd.SendMessage(WM_MOVE, 0, MAKELPARAM(-3, 7));
    wnd.SendMessage(WM_KEYDOWN, 36, MAKELPARAM(1, 0x1C));
    wnd.SendMessage(WM_MOUSEMOVE, 4, MAKELPARAM(-5, -1));
    wnd.SendMessage(WM_MOUSEMOVE, 0, MAKELPARAM(40000, 12));
    wnd.SendMessage(WM_KILLFOCUS, 0, 0);
    EXPECT_EQ(wnd.calls,
              (std::vector<std::string>{"size 2 450x210", "move -3,7", "key 36 1 28",
                                        "mouse 4 -5,-1", "mouse 0 -25536,12", "focus lost"}));
}

} // namespace
