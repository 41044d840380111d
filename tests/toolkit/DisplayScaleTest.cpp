// Where the editor's scale comes from: the strongest usable source, in quarter steps, never
// below the layout's own size.
#include "toolkit/DisplayScale.h"

#include <gtest/gtest.h>

namespace {

using display_scale::Resolve;
using display_scale::Sources;

Sources Desktop(const char* gdkScale, double dpi) {
    Sources sources;
    sources.gdkScale = gdkScale;
    sources.desktopDpi = dpi;
    return sources;
}

TEST(DisplayScale, TheUsersVariableWinsOverTheHostAndTheHostOverTheDesktop) {
    EXPECT_EQ(Resolve(Desktop(nullptr, 144.0)), 1.5) << "Xft.dpi 144 is 1.5";
    Sources sources = Desktop("2", 144.0);
    EXPECT_EQ(Resolve(sources), 2.0) << "GDK_SCALE before Xft.dpi";
    sources.host = 1.25;
    EXPECT_EQ(Resolve(sources), 1.25) << "the host's factor before both of the desktop's";
    sources.zephyraScale = "3";
    EXPECT_EQ(Resolve(sources), 3.0) << "ZEPHYRA_SCALE before everything";
    EXPECT_EQ(Resolve(Sources{}), 1.0);
}

TEST(DisplayScale, UnusableSourcesAreSkippedAndScalesKeepToQuarterStepsFromOneToFour) {
    Sources sources = Desktop("1.5", 120.0);
    sources.zephyraScale = "big";
    EXPECT_EQ(Resolve(sources), 1.0) << "a fractional GDK_SCALE is read as GTK reads it";
    for (const char* unusable : {"", "-2", "0", "nan", "2x", "inf"}) {
        sources.zephyraScale = unusable;
        sources.gdkScale = nullptr;
        EXPECT_EQ(Resolve(sources), 1.25) << '"' << unusable << "\" falls through to Xft.dpi";
    }
    sources.zephyraScale = "1.3";
    EXPECT_EQ(Resolve(sources), 1.25);
    sources.zephyraScale = "0.5";
    EXPECT_EQ(Resolve(sources), 1.0) << "never smaller than the layout";
    sources.zephyraScale = "9";
    EXPECT_EQ(Resolve(sources), 4.0);
}

TEST(DisplayScale, EdgesRoundToTheNearestDevicePixelAndPositionsBackDown) {
    EXPECT_EQ(ToDevice(455, 1.5), 683);
    EXPECT_EQ(ToDevice(456, 1.5), 684);
    EXPECT_EQ(ToDevice(-3, 2.0), -6);
    EXPECT_EQ(ToLayout(683, 1.5), 455);
    EXPECT_EQ(ToLayout(3, 2.0), 1);
    EXPECT_EQ(ToLayout(-1, 2.0), -1) << "left of the view stays left of it";
    for (int layout = 0; layout < 600; ++layout)
        ASSERT_EQ(ToLayout(ToDevice(layout, 1.25), 1.25), layout);
}

} // namespace
