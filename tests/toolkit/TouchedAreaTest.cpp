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
    const struct {
        const char* what;
        std::vector<CRect> added, shown;
    } cases[] = {
        {"two meters side by side at each end of a panel 456 pixels wide",
         {CRect(29, 45, 38, 185), CRect(38, 45, 47, 185), CRect(422, 45, 431, 185),
          CRect(431, 45, 440, 185)},
         {CRect(29, 45, 47, 185), CRect(422, 45, 440, 185)}},
        {"a piece inside another",
         {CRect(0, 0, 100, 100), CRect(50, 50, 60, 60)},
         {CRect(0, 0, 100, 100)}},
        {"empty pieces", {CRect(10, 10, 10, 30), CRect(5, 5, 0, 0)}, {}},
        // Too far apart to join, until the piece between them joins one and the joint box
        // then lies beside the other.
        {"a join that reaches another piece",
         {CRect(0, 0, 10, 100), CRect(100, 0, 110, 100), CRect(10, 0, 100, 100)},
         {CRect(0, 0, 110, 100)}},
    };
    for (const auto& c : cases) {
        TouchedArea area;
        for (const CRect& piece : c.added)
            area.Add(piece);
        EXPECT_EQ(RectsOf(area), c.shown) << c.what;
    }
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
