// The tabs under the drawing: a click shows a sheet with the model in its viewports, and drawing goes on there.
#include <QFile>
#include <QTabBar>

#include "atelier/desktop/forms/forms.h"
#include "desktop.h"

namespace kaveltest {
namespace {

using namespace atelier::desktop;

class Layouts : public Desktop {
 protected:
  QStringList names() {
    QStringList all;
    for (int i = 0; i < window.layouts().count(); ++i) all << window.layouts().tabText(i);
    return all;
  }
  void show(int tab) {
    window.layouts().setCurrentIndex(tab);
    until([&] { return !window.drawing()->isRunning() && !window.drawing()->hasMore(); });
    until([&] { return window.view()->isSettled(); });
  }
  // The picture's colour at a place of the space that is shown.
  QColor at(double x, double y) {
    const QPointF pixel = window.view()->viewport().pixel(x, y);
    return window.view()->picture().pixelColor((pixel * window.view()->picture().devicePixelRatio()).toPoint());
  }
};

// The model has a red square of 10 to 20; on the sheet a viewport at 200,100 shows it at 5:1.
TEST_F(Layouts, ASheetShowsTheModelThroughItsViewports) {
  ASSERT_GE(names().size(), 2);
  EXPECT_EQ(names().front(), "Objet");
  EXPECT_EQ(window.layouts().currentIndex(), 0);
  driver.type("(entmake '((0 . \"SOLID\") (62 . 1) (10 10. 10. 0.) (11 20. 10. 0.) (12 10. 20. 0.) (13 20. 20. 0.)))")
      .play();
  show(1);
  EXPECT_EQ(lisp("(getvar \"CTAB\")").toString(), names()[1]);
  driver
      .type(
          "(entmake '((0 . \"VIEWPORT\") (100 . \"AcDbEntity\") (100 . \"AcDbViewport\") (10 200. 100. 0.) (40 . 100.) "
          "(41 . 60.) (68 . 2) (69 . 2)"
          " (12 15. 15.) (16 0. 0. 1.) (45 . 12.)))")
      .type("CIRCLE")
      .type("20,20")
      .type("5")
      .type("ZOOM")
      .type("_W")
      .type("0,0")
      .type("297,210")
      .play();
  until([&] { return window.view()->isSettled(); });
  EXPECT_EQ(at(200, 100), QColor(255, 0, 0)) << "the square at its scale";
  EXPECT_EQ(at(222, 100), QColor(255, 0, 0));
  EXPECT_EQ(at(228, 100), window.view()->ground()) << "beside it";
  EXPECT_EQ(at(15, 15), window.view()->ground()) << "not in the sheet's own units";
  EXPECT_EQ(lisp("(cdr (assoc 410 (entget (ssname (ssget \"X\" '((0 . \"CIRCLE\"))) 0))))").toString(), names()[1]);
  EXPECT_EQ(lisp("(sslength (ssget \"C\" '(14. 14. 0.) '(26. 26. 0.)))").toInt(), 1) << "picks are of the sheet";

  // What changes in the model changes in its viewports.
  show(0);
  EXPECT_EQ(at(15, 15), QColor(255, 0, 0)) << "the view of the model as it was left";
  driver.type("(entdel (ssname (ssget \"X\" '((0 . \"SOLID\"))) 0))").play();
  show(1);
  EXPECT_EQ(at(200, 100), window.view()->ground());
  EXPECT_EQ(count("CIRCLE"), 1);
}

TEST_F(Layouts, TheSheetThatIsShownIsPlotted) {
  show(1);
  driver.type("(entmake '((0 . \"TEXT\") (10 30. 40. 0.) (40 . 5.) (1 . \"Coupe\")))").play();
  driver.menu("Tracer...").then([&] {
    auto& form = *dynamic_cast<PlotForm*>(QApplication::activeModalWidget());
    form.file->setText(file("coupe.svg"));
    form.paper->setCurrentIndex(form.paper->findData("A3"));
    form.accept();
  });
  driver.play();
  QFile plot(file("coupe.svg"));
  ASSERT_TRUE(plot.open(QIODevice::ReadOnly));
  const QByteArray drawn = plot.readAll();
  EXPECT_TRUE(drawn.contains("width=\"1190.551")) << drawn.left(200).toStdString();
  EXPECT_TRUE(drawn.contains("<use")) << "its text";
}

TEST_F(Layouts, DrawingsHaveTheirOwn) {
  show(1);
  window.open();
  EXPECT_EQ(window.layouts().currentIndex(), 0) << "of the new drawing";
  window.tabs().setCurrentIndex(0);
  EXPECT_EQ(window.layouts().currentIndex(), 1);
  driver.type("SETVAR").type("CTAB").type("Model").play();
  EXPECT_EQ(window.layouts().currentIndex(), 0) << "a command changes it, too";
}

}  // namespace
}  // namespace kaveltest
