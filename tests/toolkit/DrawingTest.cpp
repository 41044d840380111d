// Off-screen drawing: blits with origins, snapshots and stretching, blits that draw nothing,
// the image loaders, text placement and extents, and font metrics.
#include "tests/toolkit/TestImages.h"
#include "toolkit/BitmapResources.h"
#include "toolkit/CDC.h"
#include "toolkit/FontCatalog.h"
#include "toolkit/WinStyles.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

constexpr std::uint32_t kRed = 0xFF0000, kGreen = 0x00FF00, kBlue = 0x0000FF;
constexpr const char* kBundle = "test.drawing";
constexpr int kBandsId = 7001, kBrokenId = 7002;

const std::vector<unsigned char>& Bands() {
    static const std::vector<unsigned char> png = BandsPng(30, 40, {kRed, kGreen, kBlue});
    return png;
}

const unsigned char kNotAPng[] = {1, 2, 3, 4};

// A strip of three 30 × 40 bands (red, green, blue) selected into a carrier, and a 60 × 120
// canvas to draw it into.
class DrawingTest : public ::testing::Test {
protected:
    void SetUp() override {
        table[0] = {kBandsId, 1.0, Bands().data(), Bands().size()};
        table[1] = {kBrokenId, 1.0, kNotAPng, sizeof kNotAPng};
        AfxRegisterResources(kBundle, table, 2);
        ASSERT_TRUE(strip.AttachImage(LoadBitmap0(kBandsId, kBundle)));
        ASSERT_TRUE(carrier.CreateCompatibleDC(nullptr));
        carrier.SelectObject(&strip);
        ASSERT_TRUE(canvas.CreateBitmapDC(60, 120));
    }
    void TearDown() override { AfxUnregisterResources(kBundle); }
    std::uint32_t At(int x, int y) { return PixelOf(canvas.GetBitmapSurface(), x, y); }
    std::uint8_t AlphaAt(int x, int y) { return AlphaOf(canvas.GetBitmapSurface(), x, y); }

    EmbeddedResource table[2];
    CBitmap strip;
    CDC carrier, canvas;
};

TEST_F(DrawingTest, FreshDcSelectionReturnsTheNothingSentinel) {
    CDC dc;
    CBitmap bitmap;
    CBitmap* previous = dc.SelectObject(&bitmap);
    EXPECT_EQ(previous, CDC::NoBitmap());
    EXPECT_EQ(dc.SelectObject(previous), &bitmap);
    EXPECT_EQ(dc.GetSelectedBitmap(), nullptr);
    EXPECT_EQ(dc.SelectObject(static_cast<CBitmap*>(nullptr)), CDC::NoBitmap());
}

// A destination holding a selected bitmap, a part outside the image, a source without one
// and a compatible DC, which has no context to draw into: each blit succeeds, drawing nothing.
TEST_F(DrawingTest, BlitsThatDrawNothing) {
    CBitmap other;
    canvas.SelectObject(&other);
    EXPECT_TRUE(canvas.BitBlt(0, 0, 30, 40, &carrier, 0, 0, SRCCOPY));
    canvas.SelectObject(CDC::NoBitmap());
    canvas.BitBlt(0, 0, 30, 40, &carrier, 0, 200, SRCCOPY);
    CDC empty, compatible;
    empty.CreateCompatibleDC(nullptr);
    EXPECT_TRUE(canvas.BitBlt(0, 0, 30, 40, &empty, 0, 0, SRCCOPY));
    EXPECT_EQ(AlphaAt(5, 5), 0);
    EXPECT_TRUE(compatible.CreateCompatibleDC(&canvas));
    EXPECT_EQ(compatible.GetSafeContext(), nullptr);
    EXPECT_TRUE(compatible.BitBlt(0, 0, 30, 40, &carrier, 0, 0, SRCCOPY));
    compatible.FillSolidRect(CRect(0, 0, 5, 5), 0);
}

TEST_F(DrawingTest, BlitFromItselfUsesASnapshot) {
    canvas.BitBlt(0, 0, 30, 120, &carrier, 0, 0, SRCCOPY);
    canvas.BitBlt(0, 20, 30, 40, &canvas, 0, 0, SRCCOPY);
    EXPECT_EQ(std::make_pair(At(5, 55), At(5, 65)), std::make_pair(kRed, kGreen));
}

TEST_F(DrawingTest, StretchBltScalesThePart) {
    canvas.StretchBlt(0, 0, 60, 20, &carrier, 0, 40, 30, 40, SRCCOPY);
    EXPECT_EQ(At(59, 19), kGreen);
    EXPECT_EQ(AlphaAt(5, 25), 0);
}

// Loaders find images by id and bundle, measure them, and report what is missing or broken.
TEST_F(DrawingTest, ResourceLoadersFindMeasureAndReport) {
    ImageRef image = LoadImageRef(kBandsId);
    ASSERT_NE(image, nullptr);
    int width = 0, height = 0, rowBytes = 0;
    GetBitmapSize0(image, &width, &height, &rowBytes);
    EXPECT_EQ(CSize(width, height), CSize(30, 120));
    EXPECT_EQ(rowBytes, 120);
    cairo_surface_destroy(image);
    GetBitmapSize0(nullptr, &width, &height, &rowBytes);
    EXPECT_EQ(width, 0);
    EXPECT_EQ(LoadBitmap0(kBandsId, "another.bundle"), nullptr);
    EXPECT_EQ(LoadBitmap0(kBrokenId, kBundle), nullptr);
    CBitmap bitmap;
    EXPECT_TRUE(bitmap.LoadBitmap(kBandsId));

    testing::internal::CaptureStdout();
    EXPECT_EQ(LoadBitmap(7999), nullptr);
    EXPECT_EQ(LoadBitmap(kBrokenId), nullptr);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "7999.png\nCan't load bitmap 7002;G\n");
    testing::internal::CaptureStdout();
    EXPECT_EQ(LoadImageRef(7999), nullptr);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
}

class TextTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(dc.CreateBitmapDC(200, 100));
        dc.FillSolidRect(CRect(0, 0, 200, 100), RGB(255, 255, 255));
    }
    CDC dc;
};

TEST_F(TextTest, YNamesTheTopOfTheTextWithoutAFont) {
    dc.ExtTextOut(4, 0, 0, nullptr, CString("HHH"));
    const FontFace& face = DefaultFontFace();
    EXPECT_NEAR(LastInkRow(dc.GetBitmapSurface()) + 1, face.ascender / face.unitsPerEm * 12, 1.0);
}

TEST_F(TextTest, SelectedFontPlacesTheBaselineItsAscentBelowY) {
    CFont font;
    font.CreatePointFont(24, "Osaka");
    ASSERT_NE(font.GetSafeHandle(), nullptr);
    EXPECT_EQ(dc.SelectObject(&font), CDC::NoFont());
    EXPECT_EQ(dc.GetAscent(), font.GetAscent());
    dc.ExtTextOut(4, 30, 0, nullptr, CString("HHH"));
    EXPECT_NEAR(LastInkRow(dc.GetBitmapSurface()) + 1, 30 + font.GetAscent(), 1.0);
}

TEST_F(TextTest, TextColourAndOpaqueBackground) {
    dc.SetTextColor(RGB(0, 0, 200));
    dc.SetBkColor(RGB(10, 20, 30));
    const CRect box(100, 50, 190, 90);
    dc.ExtTextOut(100, 60, ETO_OPAQUE, &box, CString(""));
    EXPECT_EQ(PixelOf(dc.GetBitmapSurface(), 150, 52), 0x0A141Eu);
    EXPECT_EQ(PixelOf(dc.GetBitmapSurface(), 99, 52), 0xFFFFFFu);
}

TEST_F(TextTest, ExtentsGrowWithTheTextAndTheFontAndDeselectingRestoresThem) {
    const CSize one = dc.GetTextExtent(CString("W")), two = dc.GetTextExtent(CString("WW"));
    EXPECT_GT(one.cx, 0);
    EXPECT_NEAR(two.cx, 2 * one.cx, 1);
    EXPECT_EQ(two.cy, one.cy);
    CFont large;
    large.CreatePointFont(30, "Osaka");
    CFont* previous = dc.SelectObject(&large);
    const CSize bigger = dc.GetTextExtent(CString("W"));
    EXPECT_GT(bigger.cx, one.cx);
    EXPECT_GT(bigger.cy, one.cy);
    EXPECT_EQ(dc.GetTextExtent("WWW", 1), bigger);
    EXPECT_EQ(dc.SelectObject(previous), &large);
    EXPECT_EQ(dc.GetTextExtent(CString("W")), one);
}

TEST(CFont, PointFontMetricsComeFromTheFace) {
    CFont font;
    EXPECT_TRUE(font.CreatePointFont(12, "Osaka"));
    ASSERT_NE(font.GetFace(), nullptr);
    const FontFace& face = *font.GetFace();
    EXPECT_EQ(font.GetAscent(), static_cast<int>(face.ascender / face.unitsPerEm * 12 - 2.0));
    EXPECT_EQ(font.GetLineHeight(),
              static_cast<int>(face.boundingBoxHeight / face.unitsPerEm * 12));
    EXPECT_GT(font.GetLineHeight(), font.GetAscent());
}

TEST(CFont, MissingFaceReportsAndLeavesNoHandle) {
    CFont font;
    testing::internal::CaptureStdout();
    EXPECT_TRUE(font.CreatePointFont(12, "NoSuchFaceAnywhere"));
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "CGFontCreateWithFontName error(NoSuchFaceAnywhere)\n");
    EXPECT_EQ(font.GetSafeHandle(), nullptr);
}

} // namespace
