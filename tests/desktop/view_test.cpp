// Drawing, picking and selecting with the mouse, and undo.
#include "atelier/selecting/snaps.h"
#include "tests/desktop/desktop.h"

namespace {

using kaveltest::Desktop;

struct View : Desktop {
  void drawLine(const QString& from, const QString& to) { driver.type("LINE").type(from).type(to).type("").play(); }
  std::size_t selected() { return window.view()->selection().size(); }
  QString end(int group) {
    return lisp(QString("(vl-princ-to-string (cdr (assoc %1 (entget (entlast)))))").arg(group)).toString();
  }
};

TEST_F(View, APromptTakesPicksWordsAndEscape) {
  driver.type("LINE").pick(10, 10).type("60,10").pick(60, 40).type("Clore").play();
  EXPECT_EQ(count("LINE"), 3);
  EXPECT_NE(history().indexOf("Clore"), -1);
  driver.type("LINE").pick(0, 0).key(Qt::Key_Escape).play();
  EXPECT_EQ(count("LINE"), 3);
  EXPECT_FALSE(window.drawing()->isRunning());
  driver.type("CIRCLE").type("20,20").key(Qt::Key_Escape).type("PASUNECOMMANDE").play();
  EXPECT_EQ(count("CIRCLE"), 0);
  EXPECT_NE(history().indexOf("PASUNECOMMANDE"), -1) << history().toStdString();
}

TEST_F(View, UndoAndRedoAlsoTakeBackWhatAProgramDid) {
  driver.type("(progn (entmake '((0 . \"LINE\") (10 0 0) (11 5 5))) (entmake '((0 . \"POINT\") (10 1 1))) (princ))")
      .play();
  drawLine("0,0", "50,50");
  EXPECT_EQ(count("LINE"), 2);
  driver.menu("Annuler").play();
  EXPECT_EQ(count("LINE"), 1);
  driver.menu("Annuler").play();
  EXPECT_EQ(count("LINE") + count("POINT"), 0);
  driver.menu("Rétablir").menu("Rétablir").play();
  EXPECT_EQ(count("LINE"), 2);
  EXPECT_EQ(count("POINT"), 1);
}

// A window from left to right selects what is inside, from right to left also what it touches.
TEST_F(View, ClicksAndWindowsSelect) {
  drawLine("10,10", "40,10");
  drawLine("10,30", "90,30");
  driver.pick(25, 10).play();
  EXPECT_EQ(selected(), 1u);
  driver.key(Qt::Key_Escape).pick(5, 5).pick(50, 40).play();
  EXPECT_EQ(selected(), 1u);
  driver.key(Qt::Key_Escape).pick(50, 40).pick(5, 5).play();
  EXPECT_EQ(selected(), 2u);
  driver.key(Qt::Key_Delete).play();
  EXPECT_EQ(count("LINE"), 0);
  EXPECT_EQ(selected(), 0u);
}

TEST_F(View, ACommandTakesWhatIsSelected) {
  drawLine("10,10", "40,10");
  driver.pick(25, 10).type("MOVE").type("0,0").type("5,5").play();
  EXPECT_EQ(end(10), "(15.0 15.0 0.0)");
}

TEST_F(View, AGripMovesAnEndAndSnapsToAnother) {
  drawLine("0,0", "20,40");
  drawLine("10,10", "40,10");
  // A grip is taken by one click and set down by another: near the end of the other line, on it.
  driver.type("(setvar \"OSMODE\" 1)").pick(25, 10).pick(40, 10).pick(20.3, 40.2).play();
  EXPECT_EQ(end(11), "(20.0 40.0 0.0)");
  driver.menu("Annuler").play();
  EXPECT_EQ(end(11), "(40.0 10.0 0.0)");
}

TEST_F(View, SnapsFindTheirPoints) {
  drawLine("0,0", "40,0");
  drawLine("20,-5", "20,30");
  driver.type("CIRCLE").type("80,30").type("10").play();
  const struct {
    atelier::SnapMode mode;
    AcGePoint3d cursor, expected;
  } rows[] = {{atelier::kEnd, {39.5, 0.2, 0}, {40, 0, 0}},           {atelier::kMiddle, {19.6, 12.7, 0}, {20, 12.5, 0}},
              {atelier::kIntersection, {20.3, 0.3, 0}, {20, 0, 0}},  {atelier::kCentre, {90.2, 30.0, 0}, {80, 30, 0}},
              {atelier::kPerpendicular, {30.4, 0.3, 0}, {30, 0, 0}}, {atelier::kNearest, {33, 0.3, 0}, {33, 0, 0}}};
  for (const auto& row : rows) {
    const auto snap = atelier::findSnap(window.drawing()->document(), row.cursor, 1.0, static_cast<unsigned>(row.mode),
                                        AcGePoint3d(30, 20, 0));
    ASSERT_TRUE(snap) << atelier::snapName(row.mode);
    EXPECT_LT(snap->point.distanceTo(row.expected), 1e-9)
        << atelier::snapName(row.mode) << " " << snap->point.x << " " << snap->point.y;
  }
}

TEST_F(View, TheWheelKeepsThePointUnderTheCursor) {
  const QPointF at(300, 200);
  const AcGePoint3d before = window.view()->viewport().world(at);
  const double unit = window.view()->viewport().unitsPerPixel;
  window.view()->zoomAt(at, 2);
  EXPECT_LT(before.distanceTo(window.view()->viewport().world(at)), 1e-9);
  EXPECT_NEAR(window.view()->viewport().unitsPerPixel, unit / 2, 1e-12);
}

TEST_F(View, EscapeEndsALoopThatAsksNothing) {
  QTimer::singleShot(300, [this] { window.commandLine().onCancel(); });
  driver.type("(while T)").play();
  EXPECT_FALSE(window.drawing()->isRunning());
  driver.type("(setq apres 7)").play();
  EXPECT_EQ(lisp("apres").toInt(), 7);
}

}  // namespace
