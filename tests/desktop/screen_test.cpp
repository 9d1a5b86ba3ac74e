// What is on the screen: the window's size, the ground of the drawing, many selected objects, views of all, tabs that keep to themselves.
#include <QCheckBox>
#include <QScreen>
#include <QSettings>

#include "atelier/desktop/window/theme.h"
#include "tests/desktop/desktop.h"

namespace {

struct Screen : kaveltest::Desktop {
  ~Screen() override {
    QSettings().remove("fond");
    if (atelier::desktop::isDarkTheme() != dark_) atelier::desktop::chooseTheme(dark_);
  }
  // The part of the picture's pixels that have about this colour.
  double share(const QColor& colour) {
    window.view()->refresh();
    until([this] { return window.view()->isSettled(); });
    const QImage& picture = window.view()->picture();
    int found = 0;
    for (int y = 0; y < picture.height(); ++y)
      for (int x = 0; x < picture.width(); ++x) {
        const QColor c = picture.pixelColor(x, y);
        found += std::abs(c.red() - colour.red()) + std::abs(c.green() - colour.green()) +
                     std::abs(c.blue() - colour.blue()) <
                 60;
      }
    return double(found) / std::max(1, picture.width() * picture.height());
  }
  const bool dark_ = atelier::desktop::isDarkTheme();
};

TEST_F(Screen, AFirstWindowFitsTheScreen) {
  QSettings().remove("fenetre");
  atelier::desktop::MainWindow first;
  const QSize room = first.screen()->availableSize();
  EXPECT_LE(first.width(), room.width());
  EXPECT_LE(first.height(), room.height());
  window.drawing()->document().makeCurrent();
}

TEST_F(Screen, TheGroundGoesWithTheThemeUnlessItIsChosen) {
  if (dark_) driver.menu("Thème sombre").play();
  EXPECT_EQ(window.view()->ground(), QColor(Qt::white));
  driver.menu("Thème sombre").play();
  EXPECT_LT(window.view()->ground().lightness(), 60);
  EXPECT_GT(share(window.view()->ground()), 0.9);
  atelier::desktop::chooseGroundColour(QColor("#203050"));
  driver.menu("Thème sombre").play();
  EXPECT_EQ(window.view()->ground(), QColor("#203050"));
  driver.menu("Couleur du fond selon le thème").play();
  EXPECT_EQ(window.view()->ground(), QColor(Qt::white));
}

TEST_F(Screen, BoxesAreVisibleInTheDarkTheme) {
  if (!dark_) driver.menu("Thème sombre").play();
  QCheckBox box;
  box.resize(40, 24);
  const QImage picture = box.grab().toImage();
  int outline = 0;
  for (int y = 0; y < picture.height(); ++y)
    for (int x = 0; x < picture.width(); ++x) outline += picture.pixelColor(x, y).lightness() > 110;
  EXPECT_GT(outline, 30);
}

TEST_F(Screen, ManySelectedObjectsAreShownSelected) {
  driver
      .type(
          "(progn (setq i 0) (repeat 2500 (entmake (list '(0 . \"LINE\") (list 10 (* 0.04 i) 0.0 0.0) (list 11 (* 0.04 "
          "i) 50.0 0.0)))"
          " (setq i (1+ i))) (princ))")
      .play();
  const QColor blue(30, 110, 230);
  EXPECT_LT(share(blue), 0.01);
  driver.menu("Sélectionner tout").play();
  EXPECT_GT(share(blue), 0.2);
  driver.key(Qt::Key_Escape).play();
  EXPECT_LT(share(blue), 0.01);
  // Those that a prompt for objects collects, too.
  driver.type("(setq jeu (ssget))")
      .type("_ALL")
      .then([&] { EXPECT_GT(share(QColor(230, 120, 0)), 0.2); })
      .type("")
      .play();
}

TEST_F(Screen, ATypedViewOfAllIsThatOfTheMenu) {
  driver.type("LINE").type("0,0").type("300,20").type("").type("ZOOM").type("_E").play();
  const auto typed = window.drawing()->document().view();
  driver.type("ZOOM").type("_W").type("0,0").type("5,5").menu("Zoom étendu").play();
  const auto menu = window.drawing()->document().view();
  EXPECT_NEAR(menu.height, typed.height, 1e-6 * typed.height);
  EXPECT_LT(menu.centre.distanceTo(typed.centre), 1e-6);
  const auto port = window.view()->viewport();
  EXPECT_NEAR(300 / port.unitsPerPixel / port.size.width(), 1 / 1.02, 0.01);
}

TEST_F(Screen, WhatIsReadInOneTabDoesntShowInAnother) {
  driver.type(
      QString("(progn (plv-nouveau \"%1/exemples/rue-du-moulin.csv\" \"7\" '(0.0 0.0 0.0) 10.0 2.5 nil nil) (princ))")
          .arg(KAVEL_SOURCE));
  driver.type("PLV-CHOISIR").hover(50, 20).play();
  until([this] { return !window.status().isEmpty(); });
  EXPECT_TRUE(window.status().startsWith("Profil 7")) << window.status().toStdString();
  EXPECT_EQ(window.currentProfile().toStdString(), "Profil courant : 7");
  driver.menu("Nouveau").play();
  EXPECT_EQ(window.status(), "");
  EXPECT_EQ(window.currentProfile(), "");
  window.tabs().setCurrentIndex(0);
  EXPECT_EQ(window.currentProfile().toStdString(), "Profil courant : 7");
}

}  // namespace
