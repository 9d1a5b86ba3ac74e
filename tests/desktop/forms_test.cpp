// Forms of commands: what is wrong stands beside its field, a depth is dragged in the picture, what was accepted is done and remembered.
#include <QDir>
#include <QHeaderView>
#include <QMouseEvent>
#include <QPushButton>
#include <QTableWidget>

#include "atelier/desktop/forms/form_command.h"
#include "tests/desktop/desktop.h"

namespace {

using atelier::desktop::CommandForm;
using atelier::desktop::FormPicture;

constexpr const char* kExamples = KAVEL_SOURCE "/exemples/";

struct FormWindow : kaveltest::Desktop {
  FormWindow() {
    driver.type(QString("(plv-nouveau \"%1rue-du-moulin.csv\" \"1\" '(0.0 0.0 0.0) 10.0 2.5 nil nil)").arg(kExamples))
        .play();
  }
  CommandForm* form() { return dynamic_cast<CommandForm*>(QApplication::activeModalWidget()); }
};

void mouse(FormPicture& picture, QEvent::Type type, QPointF at) {
  QMouseEvent event(type, at, picture.mapToGlobal(at), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&picture, &event);
}

TEST_F(FormWindow, TheCorridorIsDraggedAndItsLineDrawn) {
  driver.menu("Ligne optimale...").then([this] {
    CommandForm* const f = form();
    ASSERT_TRUE(f);
    f->field("Profondeur minimale")->set("0,80");
    f->field("Profondeur maximale")->set("1.60");
    f->look();
    EXPECT_TRUE(f->words().startsWith("4 sommets")) << f->words().toStdString();
    f->resize(900, 600);
    QApplication::processEvents();
    // The lower limit stands 1.60 below the ground of the first station, 142.31; 90 cm further down it has 2.50.
    FormPicture& picture = *f->picture();
    mouse(picture, QEvent::MouseButtonPress, picture.at({0, 140.71}));
    mouse(picture, QEvent::MouseMove, picture.at({0, 140.2}));
    mouse(picture, QEvent::MouseButtonRelease, picture.at({0, 139.81}));
    EXPECT_NEAR(f->field("Profondeur maximale")->value().toDouble(), 2.5, 0.011);
    EXPECT_EQ(f->field("Profondeur minimale")->value().toString(), "0,80");
    EXPECT_TRUE(f->words().startsWith("3 sommets")) << f->words().toStdString();
  });
  driver.press("Proposer").play();
  EXPECT_EQ(lisp("(length (plv-elements-du-projet (car (plv-profils)) \"Assainissement\"))").toInt(), 2)
      << "cut at the plane";
}

TEST_F(FormWindow, WhatIsWrongStandsBesideItsFieldAndKeepsTheForm) {
  driver.menu("Ligne optimale...").then([this] {
    CommandForm* const f = form();
    ASSERT_TRUE(f);
    f->field("Profondeur minimale")->set("un mètre");
    f->field("Fichier de contraintes")->set(QString(kExamples) + "rue-du-moulin.csv");
    f->accept();
    ASSERT_EQ(form(), f) << "it stays";
    EXPECT_EQ(f->fault("Profondeur minimale"), "un nombre est attendu");
    EXPECT_TRUE(f->fault("Fichier de contraintes").contains("ligne 1 illisible"))
        << f->fault("Fichier de contraintes").toStdString();
    f->field("Profondeur minimale")->set("0.8");
    f->field("Fichier de contraintes")->set("");
    f->reject();
  });
  driver.play();
  EXPECT_EQ(lisp("(length (plv-elements (car (plv-profils)) \"Assainissement\"))").toInt(), 0);
}

TEST_F(FormWindow, AFormOpensAsItWasAccepted) {
  driver.menu("Ligne optimale...").then([this] { form()->field("Profondeur maximale")->set("1,90"); });
  driver.press("Proposer").menu("Ligne optimale...").then([this] {
    EXPECT_EQ(form()->field("Profondeur maximale")->value().toString(), "1,90");
    form()->reject();
  });
  driver.play();
}

// From the pick's end to its return the form is nowhere to be seen: the tabs must not answer then, or it would come back over another
// drawing, and its next command begin in one that isn't shown.
TEST_F(FormWindow, AFormThatPicksComesBackOverItsDrawing) {
  window.open();
  window.tabs().setCurrentIndex(0);
  std::function<void()> leave = [&] {
    if (window.drawing()->isRunning() || window.drawing()->hasMore()) return QTimer::singleShot(0, &window, leave);
    window.tabs().setCurrentIndex(1);
  };
  driver.menu("Axe en plan...").press("Choisir dans le dessin").then([&] {
    leave();
    window.drawing()->cancel();
  });
  driver.then([&] {
    until([&] { return form() != nullptr; });
    EXPECT_EQ(window.tabs().currentIndex(), 0);
    ASSERT_TRUE(form());
    form()->reject();
  });
  driver.play();
  EXPECT_FALSE(window.drawing()->isBusy());
}

// A vertex of the table goes both ways with the hand, the other rows stay; a point is picked in the drawing for its field.
TEST_F(FormWindow, AVertexIsDraggedBothWaysInThePicture) {
  driver.menu("Ligne projet...").then([this] {
    CommandForm* const f = form();
    ASSERT_TRUE(f);
    const QVariant line = QVariantList{QStringList{"0", "141", "", ""}, QStringList{"100", "136", "400", "C"},
                                       QStringList{"400", "122", "", ""}};
    f->field("Sommets")->set(line);
    f->look();
    f->resize(900, 600);
    QApplication::processEvents();
    FormPicture& picture = *f->picture();
    mouse(picture, QEvent::MouseButtonPress, picture.at({100, 136}));
    mouse(picture, QEvent::MouseMove, picture.at({115, 136.5}));
    mouse(picture, QEvent::MouseButtonRelease, picture.at({130, 135}));
    const QVariantList rows = f->field("Sommets")->value().toList();
    ASSERT_EQ(rows.size(), 3);
    EXPECT_EQ(rows[0].toStringList().join(' '), "0 141  ");
    EXPECT_NEAR(rows[1].toStringList()[0].toDouble(), 130, 0.011);
    EXPECT_NEAR(rows[1].toStringList()[1].toDouble(), 135, 0.011);
    EXPECT_EQ(rows[1].toStringList()[2], "400");
  });
  driver.press("Tracer").play();
  EXPECT_EQ(lisp("(length (car (plv-lire-ligne (car (plv-profils)) \"Projet\")))").toInt(), 3);
}

// Rows of tables: their kinds have pictures, and a dragged row takes its place in the definition.
TEST_F(FormWindow, RowsAreChosenFromPicturesAndDragged) {
  driver.menu("Matrices...").then([this] {
    CommandForm* const f = form();
    ASSERT_TRUE(f);
    f->field("Modèle")->set("eau-potable");
    f->look();
    auto* const table = f->field("Rangées")->widget()->findChild<QTableWidget*>();
    ASSERT_TRUE(table);
    for (int row = 0; row < table->rowCount(); ++row) EXPECT_FALSE(table->item(row, 1)->icon().isNull()) << row;
    EXPECT_NE(table->item(0, 1)->icon().pixmap(126, 36).toImage(), table->item(1, 1)->icon().pixmap(126, 36).toImage());
    const QVariantList before = f->field("Rangées")->value().toList();
    table->verticalHeader()->moveSection(0, 2);
    const QVariantList after = f->field("Rangées")->value().toList();
    EXPECT_EQ(after[2], before[0]);
    EXPECT_EQ(after[0], before[1]);
    EXPECT_EQ(table->verticalHeader()->logicalIndex(0), 0) << "rows are numbered by their places";
    table->item(0, 1)->setText("Pentes en %");
    EXPECT_EQ(table->item(0, 1)->icon().pixmap(126, 36).toImage().size(), QSize(126, 36));
    f->look();
    EXPECT_EQ(f->fault("Garder comme modèle"), "un nom, sous lequel ces rangées sont gardées");
    f->reject();
  });
  driver.play();
}

TEST_F(FormWindow, APlaceIsPickedInTheDrawing) {
  driver.menu("Renommer, copier, déplacer, supprimer...").then([this] {
    form()->field("Profil entier")->set("Déplacer");
    form()->look();
    EXPECT_EQ(form()->fault("Nouveau point d'insertion"), "un point du dessin est attendu");
  });
  driver.press("Choisir dans le dessin").pick(50, 25);
  driver.until([this] { return form() && form()->fault("Nouveau point d'insertion").isEmpty(); });
  driver.press("Appliquer").play();
  EXPECT_NEAR(lisp("(car (plv-origine (car (plv-profils))))").toDouble(), 50, 0.2);
}

TEST_F(FormWindow, TheFormStepsAsideWhileAnObjectIsPicked) {
  driver.type("PLINE").type("0,-50").type("420,-50").type("").type("ZOOM").type("_E");
  driver.menu("Axe en plan...").press("Choisir dans le dessin").pick(100, -50).type("");
  driver.until([this] { return form() && form()->words().startsWith("L'axe a 420.00 m"); });
  driver.press("Associer").play();
  EXPECT_TRUE(lisp("(if (plv-axe-plan (car (plv-profils))) T)").toBool());
}

// Neither their answers nor what menus call is written in the history as a program.
TEST_F(FormWindow, TheHistoryHasCommandsNotPrograms) {
  QDir::setCurrent(folder.path());
  lisp("(plv-projet (car (plv-profils)) \"Projet\" '((0.0 140.0) (400.0 122.0)))");
  const qsizetype begin = history().size();
  const QStringList commands = lisp("(plv-fiches)").toStringList();
  EXPECT_GT(commands.size(), 25);
  for (const QString& command : commands) {
    driver.then([this, command] { window.perform(command); }).until([this] { return form() != nullptr; });
    driver.then([this] {
      CommandForm* const f = form();
      f->accept();
      if (form() == f) f->reject();
    });
    driver.then([this] {
      if (window.drawing()->waits()) window.drawing()->cancel();
    });
    driver.play();
  }
  driver.menu("Fonctions AutoLISP").menu("Vérifier le dessin").play();
  for (const QString& line : history().mid(begin).split('\n'))
    EXPECT_FALSE(line.startsWith("Commande: (") || line.contains("(plv-") || line.contains("; erreur"))
        << line.toStdString();
}

// What waits for the end of a command doesn't begin behind a form that was opened meanwhile: its drawing would no longer be the one
// that is shown.
TEST_F(FormWindow, NoOtherDrawingComesInFrontOfAForm) {
  driver.type("LINE").type("0,0").then([this] {
    QTimer::singleShot(40, &window, [this] { window.perform("PLV-AXE"); });
    window.perform("@new");
  });
  driver.until([this] { return form() != nullptr; }).then([this] {
    until([] { return false; }, 400);
    EXPECT_EQ(window.tabs().count(), 1);
    form()->reject();
  });
  driver.play();
}

// Until the window has the keys again the form gets them. Escape ends the pick and not the form; Enter does nothing.
TEST_F(FormWindow, KeysToAFormThatStepsAsideDontEndIt) {
  driver.menu("Axe en plan...").then([this] {
    QDialog* const away = form();
    for (QPushButton* const button : away->findChildren<QPushButton*>())
      if (button->text() == "Choisir dans le dessin") button->click();
    EXPECT_FALSE(away->isVisible());
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
      QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
      QApplication::sendEvent(away, &event);
    }
  });
  driver.until([this] { return form() != nullptr; }).then([this] { form()->reject(); });
  driver.play();
  EXPECT_FALSE(window.drawing()->isBusy());
}

// A vertex is moved by a command: the dimensions follow without being asked for, until the step is undone.
TEST_F(FormWindow, WhatIsStaleIsMadeAnewAfterEachCommandWhenThatIsWanted) {
  driver.type("(plv-projet (car (plv-profils)) \"Projet\" '((0.0 140.0) (400.0 122.0)))")
      .type("(plv-coter (car (plv-profils)) \"Projet\" 0.0 \"Toutes\" (plv-elements (car (plv-profils)) \"Projet\"))")
      .play();
  const char* const stale = "(if (plv-perimees (plv-profils)) 1 0)";
  driver.type("(command \"_.MOVE\" (car (plv-elements (car (plv-profils)) \"Projet\")) \"\" '(0 0) '(0 5))").play();
  EXPECT_EQ(lisp(stale).toInt(), 1);
  driver.menu("Mettre à jour après chaque commande")
      .type("(command \"_.MOVE\" (car (plv-elements (car (plv-profils)) \"Projet\")) \"\" '(0 0) '(0 5))");
  driver.play();
  until([&] { return lisp(stale).toInt() == 0 && !window.drawing()->isRunning(); });
  EXPECT_EQ(lisp(stale).toInt(), 0);
  driver.type("U").play();
  EXPECT_EQ(lisp(stale).toInt(), 1) << "what was undone stays undone";
  driver.menu("Mettre à jour après chaque commande").play();
}

}  // namespace
