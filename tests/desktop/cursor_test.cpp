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

// A grip of a project line is the line's: taken and put down by two clicks, or dragged, its slopes and curves follow.
TEST_F(Cursor, AProjectLineIsDraggedByItsGrips) {
  lisp(QString("(progn (setq p (plv-nouveau \"%1/exemples/rue-du-moulin.csv\" \"1\" nil 10.0 2.5 nil nil)) T)")
           .arg(KAVEL_SOURCE));
  driver.type("(progn (plv-projet p \"Voirie\" '((0.0 142.0) (80.0 138.0 1500.0) (250.0 131.0))) (princ))").play();
  lisp("(setq plv-scene:pas-station 0.0 plv-scene:pas-pente 0.0 plv-scene:profondeurs nil)");
  window.view()->zoomExtents();
  const auto at = [this](const char* d, const char* z) {
    const QVariantList p = lisp(QString("(plv-vers-dessin (plv-cadre p) %1 %2)").arg(d, z)).toList();
    return QPointF(p[0].toDouble(), p[1].toDouble());
  };
  const auto vertex = [this] { return lisp("(plv-premiers (cadr (car (plv-lire-ligne p \"Voirie\"))) 2)").toList(); };
  emit window.profiles().onShow(lisp("(plv-handle (car (plv-elements p \"Voirie\")))").toString());
  window.view()->zoomExtents();
  const QPointF from = at("80.0", "138.0"), to = at("90.0", "136.5"), back = at("85.0", "137.0");
  driver.pick(from.x(), from.y()).hover(to.x(), to.y()).then([this] {
    EXPECT_NE(shown().note.find("rayon 1500.00"), std::string::npos) << shown().note;
    EXPECT_NE(shown().note.find("profondeur de"), std::string::npos) << shown().note;
  });
  driver.pick(to.x(), to.y()).play();
  EXPECT_NEAR(vertex()[0].toDouble(), 90, 1);
  EXPECT_NEAR(vertex()[1].toDouble(), 136.5, 0.1);
  EXPECT_EQ(lisp("(length (plv-elements-du-projet p \"Voirie\"))").toInt(), 3);
  driver.pick(vertex()[0].toDouble(), to.y()).hover(back.x(), back.y()).key(Qt::Key_Escape).play();
  EXPECT_NEAR(vertex()[0].toDouble(), 90, 1);
  EXPECT_TRUE(shown().vectors.empty());
  driver.type("U").play();
  EXPECT_NEAR(vertex()[0].toDouble(), 80, 1e-6);
}

// The read-out is the cursor's place in the drawing: it changes when the view does, whoever changes it.
TEST_F(Cursor, TheReadOutFollowsTheView) {
  const auto read = [this] { return window.coordinates().section(' ', 0, 0).toDouble(); };
  driver.type("LINE").type("0,0").hover(50, 20).then([&] { EXPECT_NEAR(read(), 50, 0.2); });
  driver.type("'ZOOM").type("_W").type("1000,0").type("1100,50").then([&] { EXPECT_NEAR(read(), 1050, 5); });
  driver.type("'PAN").type("0,0").type("-500,0").then([&] { EXPECT_NEAR(read(), 1550, 5); }).type("").play();
  driver.type("ZOOM").type("_W").type("0,0").type("100,50").play();
  EXPECT_NEAR(read(), 50, 5);
}

TEST_F(Cursor, EscapeEndsIt) {
  follow();
  driver.hover(30, 20).key(Qt::Key_Escape).play();
  EXPECT_FALSE(window.drawing()->isRunning());
}

}  // namespace
