// The geometry value types: rectangles as left, top, right, bottom with the far edges outside,
// and points packed into message parameters as the toolkit's messages carry them.
#include "base/CPoint.h"
#include "base/CRect.h"
#include "base/CSize.h"

#include <gtest/gtest.h>

TEST(CRect, SizeAndCornersFollowLeftTopRightBottom) {
    const CRect rect(10, 20, 40, 70);
    EXPECT_EQ(rect.Size(), CSize(30, 50));
    EXPECT_EQ(rect.TopLeft(), CPoint(10, 20));
    EXPECT_EQ(rect.BottomRight(), CPoint(40, 70));
    EXPECT_EQ(rect.CenterPoint(), CPoint(25, 45));
    EXPECT_EQ(CRect(CPoint(1, 2), CSize(3, 4)), CRect(1, 2, 4, 6));
}

// The right and bottom edges lie outside, which the hit tests of the panel rely on.
TEST(CRect, RightAndBottomEdgesAreOutside) {
    const CRect rect(0, 0, 10, 10);
    for (const CPoint point : {CPoint(0, 0), CPoint(9, 9)})
        EXPECT_TRUE(rect.PtInRect(point)) << point.x << "," << point.y;
    for (const CPoint point : {CPoint(10, 5), CPoint(5, 10), CPoint(-1, 5)})
        EXPECT_FALSE(rect.PtInRect(point)) << point.x << "," << point.y;
}

TEST(CRect, EmptinessAndNullness) {
    EXPECT_TRUE(CRect().IsRectEmpty());
    EXPECT_TRUE(CRect().IsRectNull());
    EXPECT_TRUE(CRect(static_cast<const RECT*>(nullptr)).IsRectNull());
    EXPECT_TRUE(CRect(5, 5, 5, 9).IsRectEmpty());
    EXPECT_TRUE(CRect(5, 5, 2, 9).IsRectEmpty());
    EXPECT_FALSE(CRect(5, 5, 2, 9).IsRectNull());
    EXPECT_FALSE(CRect(0, 0, 1, 1).IsRectEmpty());
}

TEST(CRect, OffsetInflateIntersectionAndUnion) {
    CRect rect(0, 0, 10, 20);
    rect.OffsetRect(5, -5);
    EXPECT_EQ(rect, CRect(5, -5, 15, 15));
    rect.InflateRect(1, 2);
    EXPECT_EQ(rect, CRect(4, -7, 16, 17));
    rect.DeflateRect(1, 2);
    EXPECT_EQ(rect, CRect(5, -5, 15, 15));

    CRect result;
    EXPECT_TRUE(result.IntersectRect(CRect(0, 0, 10, 10), CRect(5, 5, 20, 20)));
    EXPECT_EQ(result, CRect(5, 5, 10, 10));
    EXPECT_FALSE(result.IntersectRect(CRect(0, 0, 10, 10), CRect(10, 0, 20, 10)));
    EXPECT_TRUE(result.IsRectNull());
    EXPECT_TRUE(result.UnionRect(CRect(0, 0, 10, 10), CRect(5, 5, 20, 20)));
    EXPECT_EQ(result, CRect(0, 0, 20, 20));
    EXPECT_TRUE(result.UnionRect(CRect(), CRect(3, 3, 4, 4)));
    EXPECT_EQ(result, CRect(3, 3, 4, 4)) << "an empty rectangle adds nothing";
    EXPECT_FALSE(result.UnionRect(CRect(), CRect(9, 9, 9, 9)));
}

TEST(CPoint, LParamPackingSignExtendsBothHalves) {
    for (const CPoint point :
         {CPoint(0, 0), CPoint(12, 34), CPoint(-1, 5), CPoint(7, -2), CPoint(-32768, 32767)})
        EXPECT_EQ(CPoint::FromLParam(point.ToLParam()), point) << point.x << "," << point.y;
    EXPECT_EQ(CPoint::FromLParam(0xFFFF0001), CPoint(1, -1));
    EXPECT_EQ(CPoint(3, 4).ToLParam(), 0x00040003);
}

TEST(CPoint, ArithmeticWithSizes) {
    CPoint point(10, 20);
    point += CSize(1, 2);
    EXPECT_EQ(point, CPoint(11, 22));
    EXPECT_EQ(point - CPoint(1, 2), CSize(10, 20));
    EXPECT_EQ(point - CSize(11, 22), CPoint(0, 0));
    EXPECT_EQ(CSize(1, 2) + CSize(3, 4), CSize(4, 6));
}
