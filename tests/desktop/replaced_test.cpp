// A typed NEW, OPEN or RECOVER replaces the drawing of its tab: the window then shows and edits the new one only.
#include <QFile>
#include <QSettings>
#include <filesystem>

#include "tests/desktop/desktop.h"

namespace {

struct Replaced : kaveltest::Desktop {
  Replaced() {
    circleAt("a.dxf", "20,20");
    driver.type("LINE").type("0,0").type("50,50").type("").play();
  }
  // A drawing of one circle in a file; the window is left with a new drawing.
  void circleAt(const QString& name, const QString& centre) {
    driver.type("CIRCLE").type(centre).type("10").type("SAVEAS").type(file(name)).type("NEW").play();
  }
  // The window's picture is that of the drawing that AutoLISP sees.
  void expectPictureOfTheDrawing() {
    auto& shown = window.drawing()->scene();
    atelier::desktop::SpaceScene fresh(window.drawing()->document().database());
    fresh.refresh();
    EXPECT_EQ(items(shown), items(fresh));
    EXPECT_EQ(shown.bounds().xMin, fresh.bounds().xMin);
    EXPECT_EQ(shown.bounds().xMax, fresh.bounds().xMax);
  }
  static std::size_t items(const atelier::desktop::SpaceScene& scene) {
    std::size_t count = 0;
    for (const auto& part : scene.parts()) count += part.list->items().size();
    return count;
  }
};

TEST_F(Replaced, OpenShowsAndEditsTheFile) {
  window.view()->select({window.drawing()->document().imp().modelSpace()->children->front()});
  driver.type("OPEN").type("Oui").type(file("a.dxf")).play();
  expectPictureOfTheDrawing();
  EXPECT_EQ(window.tabs().tabText(0), "a.dxf");
  EXPECT_FALSE(window.isWindowModified());
  EXPECT_TRUE(window.view()->selection().empty());
  EXPECT_EQ(QSettings().value("recents").toStringList().value(0), file("a.dxf"));
  // The whole of it is in sight, and what is picked and drawn is its own.
  const auto port = window.view()->viewport();
  EXPECT_TRUE(QRectF(QPointF(), port.size).contains(port.pixel(10, 10)));
  EXPECT_TRUE(QRectF(QPointF(), port.size).contains(port.pixel(30, 30)));
  driver.pick(30, 20).play();
  ASSERT_EQ(window.view()->selection().size(), 1u);
  driver.type("LINE").type("0,0").type("50,50").type("").play();
  expectPictureOfTheDrawing();
  driver.key(Qt::Key_Escape).type("ERASE").type("ALL").type("").play();
  EXPECT_EQ(count("CIRCLE") + count("LINE"), 0);
  expectPictureOfTheDrawing();
}

TEST_F(Replaced, OpenIsShownWhenAScriptGoesOnInIt) {
  QFile script(file("suite.scr"));
  ASSERT_TRUE(script.open(QIODevice::WriteOnly));
  script.write(QString("OPEN\nOui\n%1\nCIRCLE\n200,20\n5\nZOOM\n_W\n0,0\n100,50\n").arg(file("a.dxf")).toUtf8());
  script.close();
  driver.type("SCRIPT").type(file("suite.scr")).play();
  expectPictureOfTheDrawing();
  EXPECT_EQ(count("CIRCLE"), 2);
  EXPECT_NEAR(window.drawing()->document().view().centre.x, 50, 1e-9);  // the script's own zoom counts
}

TEST_F(Replaced, NewIsEmptyAndHasANameOfItsOwn) {
  driver.type("OPEN").type("Oui").type(file("a.dxf")).type("NEW").play();
  expectPictureOfTheDrawing();
  EXPECT_EQ(count("CIRCLE"), 0);
  EXPECT_TRUE(window.tabs().tabText(0).startsWith("Dessin")) << window.tabs().tabText(0).toStdString();
  driver.type("CIRCLE").type("5,5").type("1").play();
  expectPictureOfTheDrawing();
  EXPECT_TRUE(window.isWindowModified());
}

// The file is cut in the middle of its entities: what follows them (the objects) is lost.
TEST_F(Replaced, RecoverOfACutFileShowsWhatIsLeft) {
  std::filesystem::copy_file(file("a.dxf").toStdString(), file("coupe.dxf").toStdString());
  QFile cut(file("coupe.dxf"));
  ASSERT_TRUE(cut.open(QIODevice::ReadWrite));
  const QByteArray bytes = cut.readAll();
  cut.resize(bytes.indexOf("AcDbCircle") + 60);
  cut.close();
  driver.type("RECOVER").type(file("coupe.dxf")).play();
  expectPictureOfTheDrawing();
  EXPECT_EQ(window.tabs().tabText(0), "coupe.dxf");
  driver.type("LINE").type("0,0").type("50,50").type("").play();
  EXPECT_EQ(count("LINE"), 1) << history().toStdString();
  expectPictureOfTheDrawing();
}

// The panel, the status bar and the menus look at a drawing without making anything in it.
TEST_F(Replaced, LookingAtADrawingMakesNothing) {
  QFile old(file("r12.dxf"));
  ASSERT_TRUE(old.open(QIODevice::WriteOnly));
  old.write("0\nSECTION\n2\nENTITIES\n0\nLINE\n8\n0\n10\n0.0\n20\n0.0\n11\n9.0\n21\n9.0\n0\nENDSEC\n0\nEOF\n");
  old.close();
  ASSERT_TRUE(window.open(file("r12.dxf")));
  const auto& db = window.drawing()->document().imp();
  const std::size_t stubs = db.stubs().size();
  window.view()->onMoved(AcGePoint3d(5, 5, 0));
  until([] { return false; }, 200);
  driver.then([this] { lisp("(plv-bureau-profils)"), lisp("(plv-bureau-lecture 5.0 5.0)"), lisp("(plv-decrire)"); })
      .play();
  EXPECT_EQ(db.stubs().size(), stubs);
  EXPECT_FALSE(window.isWindowModified());
  EXPECT_FALSE(window.drawing()->isModified());
}

}  // namespace
