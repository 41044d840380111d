// A host window on the in-memory screen with the toolkit's frame wrapped around it, as an
// editor has it once the host opened it and idled it once.
#pragma once

#include "tests/toolkit/RecordingWnd.h"
#include "toolkit/CFrameWnd.h"
#include "toolkit/MessageCache.h"
#include "toolkit/driver/CHeadlessDriver.h"

#include <gtest/gtest.h>

class HostFixture : public ::testing::Test {
protected:
    static constexpr int kHostLeft = 200, kHostTop = 100, kHostWidth = 480, kHostHeight = 320;

    void SetUp() override {
        AfxResetMsgCache();
        host = driver.CreateHostWindow(
            CRect(kHostLeft, kHostTop, kHostLeft + kHostWidth, kHostTop + kHostHeight));
        ASSERT_TRUE(frame.SetNativeHandle(host));
        // Like a host that idles its editor: the toolkit runs on this thread from now on.
        frame.HostIdle();
    }

    void TearDown() override { frame.SetNativeHandle(nullptr); }

    CHeadlessDriver driver;
    void* host = nullptr;
    CFrameWnd frame;
};

// The same with one window of the test's kind, 300 × 200 at (10, 10) in the frame; settled,
// it has had its first paint and forgotten what it received until then.
template <class Wnd = RecordingWnd, bool kSettled = false>
class WindowFixture : public HostFixture {
protected:
    void SetUp() override {
        HostFixture::SetUp();
        ASSERT_TRUE(wnd.CreateChild(&frame, CRect(10, 10, 310, 210)));
        if (kSettled)
            Settle();
    }
    void Settle() {
        driver.Pump();
        wnd.received.clear();
    }

    Wnd wnd;
};
