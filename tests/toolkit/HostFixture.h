// A host window on the in-memory screen with the toolkit's frame wrapped around it, as an
// editor has it once the host opened it and idled it once.
#pragma once

#include "toolkit/CFrameWnd.h"
#include "toolkit/driver/CHeadlessDriver.h"
#include "toolkit/MessageCache.h"

#include <gtest/gtest.h>

class HostFixture : public ::testing::Test {
protected:
    static constexpr int kHostLeft = 200;
    static constexpr int kHostTop = 100;
    static constexpr int kHostWidth = 480;
    static constexpr int kHostHeight = 320;

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
