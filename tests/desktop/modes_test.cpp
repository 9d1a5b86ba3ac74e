// What goes on while a command runs: commands between two answers, snaps and the orthogonal mode by key, button and menu.
#include <QStatusBar>
#include <QToolButton>

#include "tests/desktop/desktop.h"

namespace {

struct Modes : kaveltest::Desktop {
  void shortcut(int key) {
    for (QAction* action : window.findChildren<QAction*>())
      if (action->shortcut() == QKeySequence(key)) return action->trigger();
    ADD_FAILURE() << "no action has the key";
  }
  bool isLit(const QString& button) {
    for (const QToolButton* candidate : window.statusBar()->findChildren<QToolButton*>())
      if (candidate->text() == button) return candidate->isChecked();
    return false;
  }
  QString ends() {
    return lisp("(vl-princ-to-string (list (cdr (assoc 10 (entget (entlast)))) (cdr (assoc 11 (entget (entlast))))))")
        .toString();
  }
  double viewHeight() { return window.drawing()->document().view().height; }
};

TEST_F(Modes, CommandsRunBetweenTwoAnswers) {
  const double before = viewHeight();
  driver.type("LINE").type("10,10").type("'ZOOM").type("_W").type("0,0").type("20,20").then(
      [&] { EXPECT_LT(viewHeight(), before); });
  driver.type("'_LAYER").type("_N").type("VOIES").type("").type("30,10").type("'zoom _p").type("").play();
  EXPECT_EQ(count("LINE"), 1) << history().toStdString();
  EXPECT_EQ(ends(), "((10.0 10.0 0.0) (30.0 10.0 0.0))");
  EXPECT_EQ(lisp("(cdr (assoc 2 (tblsearch \"LAYER\" \"VOIES\")))").toString(), "VOIES");
  EXPECT_NEAR(viewHeight(), before, 1e-9);
  // The prompt has its own keywords again, and what changes objects is refused without ending the command.
  driver.type("LINE")
      .type("0,0")
      .type("'SETVAR OSMODE 1")
      .type("10,0")
      .type("'ERASE")
      .type("10,10")
      .type("'ZOOM")
      .type("_E")
      .type("Clore")
      .play();
  EXPECT_EQ(count("LINE"), 4) << history().toStdString();
  EXPECT_EQ(lisp("(getvar \"OSMODE\")").toInt(), 1);
  EXPECT_TRUE(history().contains("ERASE ne s'exécute pas pendant une autre commande")) << history().toStdString();
  // A text that begins with an apostrophe is a text.
  driver.type("(setq s (getstring T \"Nom: \"))").type("'ZOOM").play();
  EXPECT_EQ(lisp("s").toString(), "'ZOOM");
}

TEST_F(Modes, TheMenusZoomLeavesTheCommandRunning) {
  const double before = viewHeight();
  driver.type("LINE").pick(10, 10).menu("Zoom fenêtre").pick(5, 5).pick(45, 25).then([&] {
    EXPECT_LT(viewHeight(), before);
  });
  driver.menu("Zoom étendu").type("30,10").type("").play();
  EXPECT_EQ(count("LINE"), 1) << history().toStdString();
}

TEST_F(Modes, SnapsAreToggledWhileACommandRuns) {
  driver.type("LINE").type("0,0").type("40,40").type("").type("(setvar \"OSMODE\" 0)").play();
  EXPECT_FALSE(isLit("Accrochage"));
  // The first time the usual ones, with the end of the line; then they are put aside and taken up again.
  driver.type("LINE").type("90,0").then([this] { shortcut(Qt::Key_F3); }).pick(40.3, 40.3).type("").play();
  EXPECT_EQ(ends(), "((90.0 0.0 0.0) (40.0 40.0 0.0))");
  EXPECT_TRUE(isLit("Accrochage"));
  driver.type("LINE").type("90,0").then([this] { shortcut(Qt::Key_F3); }).pick(40.3, 40.3).type("").play();
  EXPECT_NE(ends(), "((90.0 0.0 0.0) (40.0 40.0 0.0))");
  EXPECT_FALSE(isLit("Accrochage"));
  shortcut(Qt::Key_F3);
  EXPECT_TRUE(isLit("Accrochage"));
}

TEST_F(Modes, OrthoDrawsAlongTheAxes) {
  driver.type("(setvar \"OSMODE\" 0)")
      .type("LINE")
      .type("10,10")
      .then([this] { shortcut(Qt::Key_F8); })
      .pick(60, 17)
      .type("")
      .play();
  EXPECT_TRUE(isLit("Ortho"));
  const QVariantList far = lisp("(cdr (assoc 11 (entget (entlast))))").toList();
  EXPECT_NEAR(far.value(0).toDouble(), 60, 0.2);
  EXPECT_EQ(far.value(1).toDouble(), 10);
  driver.type("LINE").type("10,10").pick(14, 50).type("").play();
  EXPECT_EQ(lisp("(cadr (assoc 11 (entget (entlast))))").toDouble(), 10);
  // Typed points and corners of windows are what they are.
  driver.type("LINE").type("10,10").type("20,15").type("").play();
  EXPECT_EQ(ends(), "((10.0 10.0 0.0) (20.0 15.0 0.0))");
  driver.type("RECTANG").pick(70, 10).pick(90, 30).play();
  EXPECT_NEAR(lisp("(- (apply 'max (mapcar 'cadr (plv-cles 10 (entget (entlast))))) (apply 'min (mapcar 'cadr "
                   "(plv-cles 10 (entget (entlast))))))")
                  .toDouble(),
              20, 0.5);
  shortcut(Qt::Key_F8);
  EXPECT_FALSE(isLit("Ortho"));
}

}  // namespace
