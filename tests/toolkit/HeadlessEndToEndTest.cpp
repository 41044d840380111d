// The end-to-end scenario on the headless driver, whose input and pixels it fakes in memory.
#include "tests/toolkit/EndToEndScenario.h"
#include "tests/toolkit/HostFixture.h"
#include "toolkit/platform/KeyCodes.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

namespace {

class HeadlessBackend : public ScenarioBackend {
public:
    explicit HeadlessBackend(CHeadlessDriver& driver) : m_driver(driver) {}
    void Click(CWnd* wnd, int x, int y) override { m_driver.Click(wnd, CPoint(x, y)); }
    void DoubleClick(CWnd* wnd, int x, int y) override { m_driver.DoubleClick(wnd, CPoint(x, y)); }
    void Type(const char* text) override { m_driver.Type(text); }
    void PressReturn() override { m_driver.Key(kKeyReturn, kCharReturn); }
    void KeysIntoOpenWindow(const char* keys, bool) override {
        std::istringstream names(keys);
        for (std::string name; names >> name;)
            PressNamed(name);
    }
    bool RunUntil(const std::function<bool()>& condition) override {
        m_driver.Pump();
        return condition();
    }
    std::uint32_t ScreenPixel(CWnd* wnd, int x, int y) override {
        return m_driver.PixelAt(wnd, x, y);
    }

private:
    void PressNamed(const std::string& name) {
        if (name == "Down")
            m_driver.Key(kKeyDown, kCharDown);
        else if (name == "Up")
            m_driver.Key(kKeyUp, kCharUp);
        else if (name == "Return")
            m_driver.Key(kKeyReturn, kCharReturn);
        else
            m_driver.Type(name.c_str());
    }

    CHeadlessDriver& m_driver;
};

using HeadlessEndToEnd = HostFixture;

TEST_F(HeadlessEndToEnd, WindowInAHostIsPaintedClickedAndTypedInto) {
    HeadlessBackend backend(driver);
    PlayScenario(frame, backend);
}

} // namespace
