// What a click takes: the box that is shown, lines before what they are drawn on, and all that lies in one place; and what is said of it.
#include <QKeyEvent>

#include "tests/desktop/desktop.h"

namespace {

struct Picking : kaveltest::Desktop {
  // The type and layer of what is selected, or of what the last expression gave.
  QString selected() {
    return lisp(
               "(if (setq kt-jeu (ssget \"_I\")) (strcat (itoa (sslength kt-jeu)) \" \" (cdr (assoc 0 (entget (ssname "
               "kt-jeu 0)))))"
               " \"\")")
        .toString();
  }
  // So many pixels beside a place of the drawing.
  void clickBeside(double x, double y, double pixels) {
    const double units = pixels * window.view()->viewport().unitsPerPixel;
    driver.pick(x, y + units).play();
  }
  QString hint(double x, double y) {
    driver.hover(x, y).then([] { until([] { return false; }, 80); }).play();
    return window.view()->hint();
  }
  void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QKeyEvent event(QEvent::KeyPress, key, modifiers);
    QApplication::sendEvent(window.view(), &event);
  }
};

// At every zoom it catches five pixels at least, and as many as PICKBOX says when those are more.
TEST_F(Picking, TheBoxCatchesWhatItShows) {
  driver.type("LINE").type("0,25").type("100,25").type("").play();
  for (const char* corners : {"-10,-10 110,60", "49,24 51,26"}) {
    driver.type("ZOOM")
        .type("_W")
        .type(QString(corners).section(' ', 0, 0))
        .type(QString(corners).section(' ', 1))
        .play();
    for (const auto& [box, beside, taken] :
         {std::tuple(3, 4.5, true), {3, 6.5, false}, {12, 11.0, true}, {12, 14.0, false}}) {
      driver.type(QString("(setvar \"PICKBOX\" %1)").arg(box)).key(Qt::Key_Escape).key(Qt::Key_Escape).play();
      clickBeside(50, 25, beside);
      EXPECT_EQ(selected(), taken ? "1 LINE" : "") << corners << ", PICKBOX " << box << ", " << beside << " px";
    }
  }
}

TEST_F(Picking, LinesWinOverWhatTheyAreDrawnOn) {
  driver.type("LINE").type("0,25").type("100,25").type("").play();
  driver
      .type(
          "(entmake '((0 . \"HATCH\") (100 . \"AcDbEntity\") (100 . \"AcDbHatch\") (10 0. 0. 0.) (210 0. 0. 1.) (2 . "
          "\"SOLID\") (70 . 1)"
          " (71 . 0) (91 . 1) (92 . 3) (72 . 0) (73 . 1) (93 . 4) (10 0. 0.) (10 100. 0.) (10 100. 50.) (10 0. 50.)"
          " (97 . 0) (75 . 0) (76 . 1) (98 . 0)))")
      .type("TEXT")
      .type("40,24")
      .type("3")
      .type("0")
      .type("regard")
      .play();
  ASSERT_EQ(count("HATCH"), 1);
  clickBeside(20, 25, 3);
  EXPECT_EQ(selected(), "1 LINE");
  driver.key(Qt::Key_Escape).pick(42, 25).play();  // through the text
  EXPECT_EQ(selected(), "1 LINE");
  driver.key(Qt::Key_Escape).pick(42, 26.5).play();
  EXPECT_EQ(selected(), "1 TEXT");
  driver.key(Qt::Key_Escape).pick(20, 10).play();
  EXPECT_EQ(selected(), "1 HATCH");
}

// Three curves through (62, 41), where none of them has a grip; the one drawn last is the first.
TEST_F(Picking, AllThatLiesInOnePlaceIsReached) {
  driver.type("CIRCLE").type("50,25").type("20").type("LINE").type("62,0").type("62,50").type("").play();
  driver.type("PLINE").type("0,41").type("100,41").type("").play();
  // A second click goes on from one to the next, and comes back to the first.
  QStringList clicked;
  for (int i = 0; i < 4; ++i) {
    driver.pick(62, 41).play();
    clicked << selected();
  }
  EXPECT_EQ(clicked.join(", ").toStdString(), "1 LWPOLYLINE, 1 LINE, 1 CIRCLE, 1 LWPOLYLINE");
  // So do the keys, before the click.
  driver.key(Qt::Key_Escape).play();
  EXPECT_EQ(hint(62, 41).toStdString(), "Polyligne, calque 0 (1/3)");
  press(Qt::Key_Tab);
  EXPECT_EQ(window.view()->hint().toStdString(), "Ligne, calque 0 (2/3)");
  press(Qt::Key_Space, Qt::ShiftModifier);
  EXPECT_EQ(window.view()->hint().toStdString(), "Cercle, calque 0 (3/3)");
  driver.pick(62, 41).play();
  EXPECT_EQ(selected(), "1 CIRCLE");
  // A command takes what was lit up; elsewhere the nearest counts again.
  driver.key(Qt::Key_Escape).type("(setq e (car (entsel)))").hover(62, 41).then([this] {
    until([this] { return !window.view()->hint().isEmpty(); });
    press(Qt::Key_Tab);
  });
  driver.pick(62, 41).play();
  EXPECT_EQ(lisp("(cdr (assoc 0 (entget e)))").toString().toStdString(), "LINE");
  driver.type("(setq e (car (entsel)))").pick(50, 45).play();
  EXPECT_EQ(lisp("(cdr (assoc 0 (entget e)))").toString().toStdString(), "CIRCLE");
  // Where objects are collected, clicks in one place collect all that lies there.
  driver.type("(setq jeu (ssget))").pick(62, 41).pick(62, 41).pick(62, 41).type("").play();
  EXPECT_EQ(lisp("(sslength jeu)").toInt(), 3);
}

TEST_F(Picking, TheLinesOfAProfileSayWhatTheyAre) {
  const QString examples = KAVEL_SOURCE "/exemples/";
  driver.type(QString("(progn (plv-nouveau \"%1rue-du-moulin.csv\" \"1\" '(0.0 0.0 0.0) 10.0 2.5 nil nil) (princ))")
                  .arg(examples));
  driver.type("PLV-PROJET").type("Projet").type("Fichier").type(examples + "rue-du-moulin-projet.csv").play();
  driver.type("ZOOM").type("_E").play();
  const double y = lisp("(pl_yat (car (plv-elements (car (plv-profils)) \"Projet\")) 60.0)").toDouble();
  ASSERT_GT(y, 0);
  const QString said = hint(60, y);
  EXPECT_TRUE(said.startsWith("Ligne Projet, PK 0+60.00, altitude ")) << said.toStdString();
  EXPECT_TRUE(said.contains(" %")) << said.toStdString();
  EXPECT_EQ(hint(60, -100), "");
  EXPECT_FALSE(window.drawing()->isRunning());
}

}  // namespace
