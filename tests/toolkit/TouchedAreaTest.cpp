// What a window DC shows after drawing: the touched places, joined where they lie close.
#include "toolkit/TouchedArea.h"

#include <gtest/gtest.h>

#include <ostream>
#include <random>
#include <vector>

// Failures show rectangles as their corners.
void PrintTo(const CRect& rect, std::ostream* out) {
    *out << "(" << rect.left << "," << rect.top << ")-(" << rect.right << "," << rect.bottom << ")";
}

namespace {

std::vector<CRect> RectsOf(const TouchedArea& area) {
    return std::vector<CRect>(area.begin(), area.end());
}

TEST(TouchedArea, NeighboursJoinAndDistantPlacesStayApart) {
    TouchedArea meters;
    // Two meters side by side at each end of a panel 456 pixels wide.
    meters.Add(CRect(29, 45, 38, 185));
    meters.Add(CRect(38, 45, 47, 185));
    meters.Add(CRect(422, 45, 431, 185));
    meters.Add(CRect(431, 45, 440, 185));
    EXPECT_EQ(RectsOf(meters),
              (std::vector<CRect>{CRect(29, 45, 47, 185), CRect(422, 45, 440, 185)}));

    TouchedArea overlapping;
    overlapping.Add(CRect(0, 0, 100, 100));
    overlapping.Add(CRect(50, 50, 60, 60));
    EXPECT_EQ(RectsOf(overlapping), std::vector<CRect>{CRect(0, 0, 100, 100)});

    TouchedArea nothing;
    nothing.Add(CRect(10, 10, 10, 30));
    nothing.Add(CRect(5, 5, 0, 0));
    EXPECT_TRUE(nothing.IsEmpty());
}

TEST(TouchedArea, AJoinThatReachesAnotherPieceTakesItIn) {
    TouchedArea area;
    area.Add(CRect(0, 0, 10, 10));
    area.Add(CRect(200, 0, 210, 10));
    // Joins the first, and the joint box then lies beside the second.
    area.Add(CRect(10, 0, 200, 10));
    EXPECT_EQ(RectsOf(area), std::vector<CRect>{CRect(0, 0, 210, 10)});
}

TEST(TouchedArea, ManyScatteredPiecesStayFewAndCoverEverything) {
    std::mt19937 random(7);
    std::uniform_int_distribution<int> place(0, 2000);
    std::uniform_int_distribution<int> extent(1, 40);
    for (int round = 0; round < 200; ++round) {
        TouchedArea area;
        std::vector<CRect> added;
        for (int i = 0; i < 12; ++i) {
            const int left = place(random);
            const int top = place(random);
            added.emplace_back(left, top, left + extent(random), top + extent(random));
            area.Add(added.back());
        }
        ASSERT_LE(area.Count(), TouchedArea::kMaxRects);
        for (const CRect& piece : added) {
            bool covered = false;
            for (const CRect& shown : area) {
                CRect common;
                covered = covered || (common.IntersectRect(piece, shown) && common == piece);
            }
            ASSERT_TRUE(covered) << "round " << round;
        }
    }
}

} // namespace
