// What is on the screen: the window's size, the ground of the drawing, many selected objects, views of all, tabs that keep to themselves.
#include <QCheckBox>
#include <QScreen>
#include <QSettings>
#include <QStatusBar>
#include <QToolButton>

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

// What a widget's own style says comes on top of the theme's colours, not of those that the window began with.
TEST_F(Screen, ThePartsOfTheWindowFollowTheTheme) {
  for (int turn = 0; turn < 3; ++turn) {
    driver.menu("Thème sombre").play();
    const bool dark = atelier::desktop::isDarkTheme();
    for (QWidget* const part : window.findChildren<QWidget*>()) {
      if (!part->isVisible() || part->window() != &window) continue;
      EXPECT_EQ(part->palette().color(QPalette::Window).lightness() < 128, dark) << part->metaObject()->className();
    }
    for (QToolButton* const button : window.statusBar()->findChildren<QToolButton*>()) {
      const QImage ground = button->grab().toImage();
      EXPECT_EQ(ground.pixelColor(3, 3).lightness() < 128, dark) << button->text().toStdString();
    }
  }
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
  const auto shown = [this] {
    return window.currentProfile().toStdString() + "|" + window.profiles().topLevelItem(0)->text(0).toStdString();
  };
  for (int turn = 0; turn < 2; ++turn) {
    EXPECT_EQ(shown(), "|Aucun profil");
    window.tabs().setCurrentIndex(0);
    EXPECT_EQ(shown(), "Profil courant : 7|Profil 7");
    window.tabs().setCurrentIndex(1);
  }
}

// Of things that lie on each other the last one drawn is seen, also when many were drawn at once.
TEST_F(Screen, WhatIsDrawnLastLiesOnTop) {
  driver
      .type(
          "(progn (setq i 0) (repeat 60 (setq i (1+ i)) (entmake (list '(0 . \"SOLID\") (cons 62 (1+ (rem i 3)))"
          " '(10 0. 0.) '(11 100. 0.) '(12 0. 50.) '(13 100. 50.)))) (princ))")
      .play();
  EXPECT_GT(share(QColor(255, 0, 0)), 0.2);  // 60 is a multiple of 3
}

// A command that begins or computes keeps its drawing in front.
TEST_F(Screen, ARunningCommandKeepsItsTab) {
  driver.menu("Nouveau").then([this] {
    window.drawing()->feed({{"LINE", {"0,0"}}});
    window.tabs().setCurrentIndex(0);
  });
  driver.then([this] {
    EXPECT_EQ(window.tabs().currentIndex(), 1);
    EXPECT_TRUE(window.drawing()->waits());
    window.drawing()->cancel();
  });
  driver.play();
  bool tried = false;
  QTimer::singleShot(300, [&] { window.tabs().setCurrentIndex(0), tried = true; });
  QTimer::singleShot(600, [this] { window.commandLine().onCancel(); });
  driver.type("(while T)").play();
  EXPECT_TRUE(tried);
  EXPECT_EQ(window.tabs().currentIndex(), 1);
}

}  // namespace
