// The note beside the cursor keeps clear of what a program draws, and stays where it is while it may.
#include <gtest/gtest.h>

#include <vector>

#include "atelier/desktop/view/note_place.h"

using namespace atelier::desktop;

namespace {

constexpr QSizeF kNote(200, 80), kView(1000, 600);

TEST(NotePlace, ANoteStandsWhereItHidesNothing) {
  struct Case {
    QPointF cursor;
    std::vector<QLineF> drawn;
    NoteCorner expected;
  };
  const QLineF falls(500, 300, 900, 500), rises(500, 300, 900, 100), comes(100, 500, 500, 300);
  for (const Case& c : {Case{{500, 300}, {}, NoteCorner::belowRight}, Case{{500, 300}, {falls}, NoteCorner::aboveRight},
                        Case{{500, 300}, {falls, rises}, NoteCorner::belowLeft},
                        Case{{500, 300}, {falls, rises, comes}, NoteCorner::aboveLeft},
                        // a line that comes down to the cursor goes on down to the right
                        Case{{500, 300}, {QLineF(100, 100, 498, 300)}, NoteCorner::aboveRight},
                        Case{{500, 300}, {QLineF(100, 500, 498, 300)}, NoteCorner::belowRight},
                        // at the border of the view only what fits counts
                        Case{{950, 300}, {}, NoteCorner::belowLeft}, Case{{950, 580}, {}, NoteCorner::aboveLeft}}) {
    NoteCorner corner = NoteCorner::belowRight;
    const QRectF box = placeOfNote(c.cursor, kNote, kView, c.drawn, corner);
    EXPECT_EQ(corner, c.expected);
    EXPECT_TRUE(QRectF({0, 0}, kView).contains(box));
    EXPECT_FALSE(box.contains(c.cursor));
  }
}

TEST(NotePlace, ItDoesNotJumpForAFewPixels) {
  NoteCorner corner = NoteCorner::aboveRight;
  const std::vector<QLineF> grazed{QLineF(505, 290, 525, 275)};
  placeOfNote({500, 300}, kNote, kView, grazed, corner);
  EXPECT_EQ(corner, NoteCorner::aboveRight);
}

}  // namespace
