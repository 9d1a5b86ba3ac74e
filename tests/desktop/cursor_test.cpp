// Programs that follow the cursor: each place is an answer, what they show is on the screen, keys and clicks come through.
#include "tests/desktop/desktop.h"

namespace {

struct Cursor : kaveltest::Desktop {
  // Follows the cursor with a note and a vector until a click; the keys and the click go to variables.
  void follow() {
    driver.type(
        "(progn (setq touches nil lu nil) (while (/= (car (setq lu (grread T 12 0))) 3)"
        " (if (= (car lu) 2) (setq touches (cons (cadr lu) touches))"
        " (progn (redraw) (grdraw '(0 0) (cadr lu) 1) (grtext -1 (strcat \"x = \" (rtos (caadr lu) 2 0) \" | ici\")))))"
        " (redraw) (grtext) (princ))");
  }
  const atelier::Transients& shown() { return window.drawing()->document().transients(); }
};

TEST_F(Cursor, EveryPlaceIsToldAndShown) {
  follow();
  driver.hover(30, 20).then([this] {
    EXPECT_EQ(shown().note, "x = 30 | ici");
    ASSERT_EQ(shown().vectors.size(), 1u);
    EXPECT_NEAR(shown().vectors[0].to.y, 20, 0.2);
  });
  driver.hover(50, 10).then([this] { EXPECT_EQ(shown().note, "x = 50 | ici"); });
  driver.type("a%").pick(70, 40).play();
  EXPECT_TRUE(shown().note.empty());
  EXPECT_TRUE(shown().vectors.empty());
  EXPECT_EQ(lisp("(vl-princ-to-string (reverse touches))").toString(), "(97 37 13)");
  EXPECT_NEAR(lisp("(caadr lu)").toDouble(), 70, 0.2);
}

TEST_F(Cursor, AProjectLineIsDrawnByClicks) {
  lisp(QString("(progn (setq p (plv-nouveau \"%1/exemples/rue-du-moulin.csv\" \"1\" nil 10.0 2.5 nil nil)) T)")
           .arg(KAVEL_SOURCE));
  lisp("(setq plv-scene:pas-station 0.0 plv-scene:pas-pente 0.0 plv-scene:profondeurs nil)");
  window.view()->zoomExtents();
  driver.type("PLV-DESSINER").type("Assainissement").pick(20, 110).hover(100, 100).then([this] {
    EXPECT_NE(shown().note.find("distance 80."), std::string::npos) << shown().note;
    EXPECT_FALSE(shown().vectors.empty());
  });
  driver.pick(100, 100).pick(60, 100).type("R").type("P1.2").pick(200, 0).type("").play();
  EXPECT_TRUE(history().contains("Sommet refusé: les stations vont en croissant")) << history().toStdString();
  const QVariantList line = lisp("(mapcar 'car (car (plv-lire-ligne p \"Assainissement\")))").toList();
  ASSERT_EQ(line.size(), 2) << history().toStdString();
  EXPECT_NEAR(line[0].toDouble(), 20, 0.5);
  EXPECT_NEAR(line[1].toDouble(), 200, 0.5);
}

TEST_F(Cursor, EscapeEndsIt) {
  follow();
  driver.hover(30, 20).key(Qt::Key_Escape).play();
  EXPECT_FALSE(window.drawing()->isRunning());
}

}  // namespace
