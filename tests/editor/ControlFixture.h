// What the control tests share: the window a control belongs to, what its call-back was
// told, and an off-screen DC to draw it into.
#pragma once

#include "tests/editor/FramePictures.h"
#include "toolkit/CWnd.h"

#include <gtest/gtest.h>
#include <vector>

struct Report {
    int id;
    float value;
};

class ControlTest : public ::testing::Test {
protected:
    ControlTest() { image.CreateBitmapDC(200, 200); }

    // The call-back every control under test is made with; user is the fixture.
    static bool Record(int id, float value, void* user) {
        static_cast<ControlTest*>(user)->reports.push_back({id, value});
        return true;
    }

    CWnd parent;
    std::vector<Report> reports;
    CDC image;
};
