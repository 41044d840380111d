// The font catalog on Windows, where GDI finds the faces: names resolve as on Linux and the
// metrics are the font file's own (its 'head' and 'hhea' tables), as FreeType reads them.
#include "toolkit/FontCatalog.h"

#include <gtest/gtest.h>

namespace {

TEST(GdiFonts, TheJapaneseSystemFaceIsStoodInForWithTheFontFilesMetrics) {
    // IPAGothic (Debian's fonts-ipafont-gothic, which wine sees): ipag.ttf's head table says
    // 2048 units per em and a box from -441 to 2035, its hhea table an ascender of 1802.
    const FontFace* face = FindFontFace("Osaka");
    ASSERT_NE(face, nullptr);
    if (face->family != "IPAGothic")
        GTEST_SKIP() << "Osaka stands in as " << face->family << ", not IPAGothic";
    EXPECT_EQ(face->unitsPerEm, 2048.0);
    EXPECT_EQ(face->boundingBoxHeight, 2476.0);
    EXPECT_EQ(face->ascender, 1802.0);
    EXPECT_EQ(FindFontFace("Osaka"), face) << "looked up once and kept";
}

TEST(GdiFonts, AMissingFaceIsNotFoundButTheDefaultFaceAlwaysIs) {
    EXPECT_EQ(FindFontFace("NoSuchFaceAnywhere"), nullptr);
    EXPECT_EQ(FindFontFace(""), nullptr);
    const FontFace& fallback = DefaultFontFace();
    EXPECT_FALSE(fallback.family.empty());
    EXPECT_GT(fallback.unitsPerEm, 0.0);
    EXPECT_GT(fallback.ascender, 0.0);
    EXPECT_GT(fallback.boundingBoxHeight, fallback.ascender);
}

} // namespace
