// Work on a profile in the window: forms, panel, status bar, menus of the profile, dialogs of quantities.
#include <QComboBox>
#include <QLineEdit>
#include <QTabWidget>
#include <QTableWidget>

#include "atelier/desktop/forms/form_command.h"
#include "atelier/desktop/forms/forms.h"
#include "tests/desktop/desktop.h"

namespace {

constexpr const char* kExamples = KAVEL_SOURCE "/exemples/";

using atelier::desktop::CommandForm;

struct ProfileWindow : kaveltest::Desktop {
  ProfileWindow() {
    driver.menu("Nouveau profil...").then([this] {
      form<CommandForm>()->field("Fichier du terrain naturel")->set(QString(kExamples) + "rue-du-moulin.csv");
    });
    driver.press("Créer").pick(0, 0).play();
  }
  template <class Form>
  Form* form() {
    return dynamic_cast<Form*>(QApplication::activeModalWidget());
  }
  void addProject() {
    driver.type("PLV-PROJET")
        .type("Projet")
        .type("Fichier")
        .type(QString(kExamples) + "rue-du-moulin-projet.csv")
        .play();
  }
  QStringList tree() {
    QStringList texts;
    for (QTreeWidgetItemIterator item(&window.profiles()); *item; ++item) texts << (*item)->text(0);
    return texts;
  }
};

TEST_F(ProfileWindow, FormsMakeAProfileWithItsTables) {
  EXPECT_EQ(lisp("(length (plv-profils))").toInt(), 1);
  driver.menu("Matrices...").then([this] {
    form<CommandForm>()->field("Fichier de définition")->set(QString(kExamples) + "matrices-route.txt");
    form<CommandForm>()->look();
  });
  driver.press("Dessiner").play();
  EXPECT_GT(count("INSERT"), 1);
  const QStringList shown = tree();
  EXPECT_TRUE(shown.contains("Profil 1")) << shown.join("\n").toStdString();
  EXPECT_FALSE(shown.filter("à partir de 0.00").isEmpty()) << shown.join("\n").toStdString();
  for (const char* text : {"ROUTE", "Altitude terrain naturel", "Pentes et rampes"})
    EXPECT_TRUE(shown.contains(text)) << shown.join("\n").toStdString();
}

TEST_F(ProfileWindow, AFormTakesADecimalComma) {
  driver.menu("Nouveau profil...").then([this] {
    CommandForm& f = *form<CommandForm>();
    f.field("Fichier du terrain naturel")->set(QString(kExamples) + "rue-du-moulin.csv");
    for (const auto& [typed, fault] : {std::pair("2,75", ""), {"3.5", ""}, {"2.7.5", "un nombre est attendu"}}) {
      f.field("Hauteur de texte")->set(typed);
      f.look();
      EXPECT_EQ(f.fault("Hauteur de texte"), fault) << typed;
    }
    EXPECT_EQ(f.field("Numéro du profil")->value().toString(), "2") << "the next free one";
    f.reject();
  });
  driver.play();
}

TEST_F(ProfileWindow, AFormWithoutAFileStaysAndSaysWhatItNeeds) {
  driver.menu("Nouveau profil...").press("Créer").then([this] {
    ASSERT_TRUE(form<CommandForm>());
    EXPECT_EQ(form<CommandForm>()->fault("Fichier du terrain naturel"), "un fichier est attendu");
    form<CommandForm>()->reject();
  });
  driver.play();
  EXPECT_EQ(lisp("(length (plv-profils))").toInt(), 1);
}

TEST_F(ProfileWindow, TheStatusBarReadsTheProfileUnderTheCursor) {
  window.view()->zoomExtents();
  const QVariantList expected = lisp("(plv-bureau-lecture 100.0 20.0)").toList();
  ASSERT_EQ(expected.size(), 5);
  window.view()->onMoved(AcGePoint3d(100, 20, 0));
  until([this] { return !window.status().isEmpty(); });
  for (const QVariant& part : expected)
    EXPECT_TRUE(window.status().contains(part.toString())) << window.status().toStdString();
  window.view()->onMoved(AcGePoint3d(-500, 20, 0));
  until([this] { return window.status().isEmpty(); });
  EXPECT_EQ(window.status(), "");
}

TEST_F(ProfileWindow, APanelClickSelectsAndShowsTheStoredKeys) {
  auto* const item = window.profiles().topLevelItem(0);
  emit window.profiles().itemClicked(item, 0);
  ASSERT_EQ(window.view()->selection().size(), 1u);
  QStringList fields;
  for (int i = 0; i < window.properties().rowCount(); ++i) fields << window.properties().item(i, 0)->text();
  EXPECT_TRUE(fields.contains("ECHV")) << fields.join(" ").toStdString();
}

TEST_F(ProfileWindow, ChoosingAProfileBringsItsMenuWhoseEntriesRun) {
  driver.menu("Matrices...").then([this] {
    form<CommandForm>()->field("Fichier de définition")->set(QString(kExamples) + "matrices-route.txt");
    form<CommandForm>()->look();
  });
  driver.press("Dessiner").play();
  emit window.profiles().itemDoubleClicked(window.profiles().topLevelItem(0), 0);
  driver.play();
  driver.menu("Associer Projet").then([this] {
    ASSERT_TRUE(form<CommandForm>());
    EXPECT_EQ(form<CommandForm>()->windowTitle(), "Courbes d'un genre");
    form<CommandForm>()->reject();
  });
  driver.play();
  EXPECT_FALSE(window.drawing()->isRunning());
  // The menu is removed with the drawing.
  answer = "non";
  EXPECT_TRUE(window.closeTab(0));
  QApplication::processEvents();
  for (const QAction* action : window.menuBar()->actions()) EXPECT_NE(action->text(), "Profil 1");
}

TEST_F(ProfileWindow, TheBarShowsTheMenuOfTheDrawingInFront) {
  const auto shown = [this] {
    QApplication::processEvents();
    QStringList menus;
    for (const QAction* action : window.menuBar()->actions())
      if (action->text().startsWith("Profil ")) menus << action->text();
    return menus.join(",");
  };
  const auto tables = [this](const char* profile) {
    driver.type(QString("(progn (plv-matrices (plv-profil-de-numero \"%1\") \"%2matrices-route.txt\" nil) (princ))")
                    .arg(profile, kExamples));
    driver.type("PLV-CHOISIR").play();
  };
  tables("1");
  EXPECT_EQ(shown(), "Profil 1");
  window.open();
  EXPECT_EQ(shown(), "");
  for (const QString& line : {QString("PLV-NOUVEAU"), QString(kExamples) + "rue-du-moulin.csv", QString("B2"),
                              QString("0,0"), QString(), QString(), QString(), QString()})
    driver.type(line);
  driver.play();
  tables("B2");
  EXPECT_EQ(shown(), "Profil B2");
  auto* const tabs = window.findChild<QTabWidget*>();
  tabs->setCurrentIndex(0);
  EXPECT_EQ(shown(), "Profil 1");
  // What its entries work on are the tables of this drawing.
  EXPECT_EQ(lisp("(if (pl_SelectMatrice 0) (pl_nbmatrices))").toInt(), 2);
  tabs->setCurrentIndex(1);
  EXPECT_EQ(shown(), "Profil B2");
  answer = "non";
  EXPECT_TRUE(window.closeTab(1));
  EXPECT_EQ(shown(), "Profil 1");
}

// Before the other answers, not after them.
TEST_F(ProfileWindow, ANumberThatIsTakenIsAskedForAgain) {
  for (const QString& line : {QString("PLV-NOUVEAU"), QString(kExamples) + "rue-du-moulin.csv", QString("1"),
                              QString("C3"), QString("0,900"), QString(), QString(), QString(), QString()})
    driver.type(line);
  driver.play();
  EXPECT_TRUE(history().contains("Le dessin a déjà un profil numéro 1.")) << history().toStdString();
  EXPECT_EQ(lisp("(length (plv-points-tn (plv-profil-de-numero \"C3\")))").toInt(), 59);
}

TEST_F(ProfileWindow, APanelClickAnswersAPromptForObjects) {
  driver.type("(setq jeu (ssget))").then([this] {
    emit window.profiles().itemClicked(window.profiles().topLevelItem(0), 0);
  });
  driver.type("").play();
  EXPECT_EQ(lisp("(and (= (sslength jeu) 1) (eq (ssname jeu 0) (car (plv-profils))))").toBool(), true);
}

TEST_F(ProfileWindow, TheQuantityDialogAddsHatchesAndCloses) {
  addProject();
  QString header, sections;
  driver.menu("Métrés...").press("Ajouter Profils").type("_ALL").type("").then([&] {
    for (const QTableWidget* table : QApplication::activeModalWidget()->findChildren<QTableWidget*>()) {
      if (!table->isVisible()) continue;
      for (int row = 0; row < table->rowCount(); ++row)
        for (int column = 0; column < table->columnCount(); ++column)
          if (table->item(row, column)) sections += table->item(row, column)->text() + "|";
    }
  });
  driver.press("Schématiser sur p/long").press("Fermer").play();
  EXPECT_TRUE(sections.contains("Profil:1")) << sections.toStdString();
  EXPECT_GT(count("HATCH"), 0);
  EXPECT_FALSE(window.drawing()->isRunning());
}

// An edit by a program, as by a grip: the panel says what it made untrue, frames show it, F5 makes it anew, and before a plot it is asked.
TEST_F(ProfileWindow, WhatIsNoLongerTrueIsShownAndMadeAnew) {
  addProject();
  driver
      .type(QString("(progn (plv-matrices (car (plv-profils)) \"%1matrices-completes.txt\" T) (princ))").arg(kExamples))
      .play();
  const auto stale = [this] { return tree().filter("Pas à jour").join("|"); };
  EXPECT_EQ(stale(), "");
  EXPECT_TRUE(window.view()->framed().empty());
  driver.type("MOVE")
      .type("(car (plv-elements (car (plv-profils)) \"Projet\"))")
      .type("")
      .type("0,0")
      .type("0,-4")
      .play();
  EXPECT_EQ(stale(), "Pas à jour (2)");
  EXPECT_FALSE(tree().filter("Rangée Profondeur: à mettre à jour: le terrain ou la ligne de projet").isEmpty())
      << tree().join("\n").toStdString();
  EXPECT_EQ(window.view()->framed().size(), 2U);
  answer = "annuler";
  window.perform("@plot");
  ASSERT_FALSE(questions.isEmpty());
  EXPECT_EQ(questions.back(), "2 choses ne sont plus à jour. Refaire avant de tracer ?");
  // as F5 does
  driver.menu("Mettre à jour").play();
  EXPECT_EQ(stale(), "");
  EXPECT_TRUE(window.view()->framed().empty());
  driver.type("U").play();
  EXPECT_EQ(stale(), "Pas à jour (2)");
  // At the sheets the question is the command's, Enter makes anew.
  driver.type("PLV-FEUILLES").type("").type("A1").type("").type("").type(file("f.pdf")).play();
  EXPECT_TRUE(history().contains("2 choses ne sont plus à jour: refaire d'abord")) << history().toStdString();
  EXPECT_EQ(stale(), "");
}

// A grip of a ground line moves the point: the line beside it and the record follow in the same step.
TEST_F(ProfileWindow, AGripOfTheGroundTakesItsNeighbourAlong) {
  lisp("(setq p (car (plv-profils)) l (plv-lignes-du-plan (car (plv-entites-plans p))))");
  const auto number = [this](const char* what) { return lisp(what).toDouble(); };
  emit window.profiles().onShow(lisp("(plv-handle (nth 3 l))").toString());
  const double x = number("(cadr (assoc 11 (entget (nth 3 l))))"), y = number("(caddr (assoc 11 (entget (nth 3 l))))");
  const double before = number("(cadr (nth 4 (plv-points-tn p)))");
  driver.pick(x, y).pick(x, y + 4).play();
  EXPECT_NEAR(number("(cadr (nth 4 (plv-points-tn p)))"), before + 0.4, 0.05);
  EXPECT_NEAR(number("(caddr (assoc 10 (entget (nth 4 l))))"), y + 4, 0.5);
  EXPECT_TRUE(lisp("(null (plv-ecarts-terrain p))").toBool());
  driver.type("U").play();
  EXPECT_NEAR(number("(cadr (nth 4 (plv-points-tn p)))"), before, 1e-9);
  EXPECT_TRUE(lisp("(null (plv-ecarts-terrain p))").toBool());
}

// Whichever of its parts is dragged, the profile goes with it as a whole: by two clicks, or with the button held.
TEST_F(ProfileWindow, APartThatIsDraggedTakesTheProfileAlong) {
  lisp(QString("(progn (setq p (car (plv-profils))) (plv-matrices p \"%1matrices-route.txt\" nil) T)").arg(kExamples));
  driver.type("(plv-projet p \"Voirie\" '((0.0 142.0) (80.0 138.0 1500.0) (250.0 131.0)))")
      .type("ZOOM")
      .type("_E")
      .play();
  const auto number = [this](const char* what) { return lisp(what).toDouble(); };
  const int whole = static_cast<int>(number("(length (plv-ensemble p))"));
  for (const char* part :
       {"p", "(car (plv-entites-plans p))", "(car (plv-tables p))", "(car (plv-entites-habillage p))"}) {
    const double before = number("(car (plv-origine p))"),
                 line = number("(cadr (assoc 10 (entget (car (plv-elements p \"Voirie\")))))");
    const QString of = QString("(entget %1)").arg(part);
    emit window.profiles().onShow(lisp(QString("(plv-handle %1)").arg(part)).toString());
    const double x = lisp(QString("(cadr (assoc 10 %1))").arg(of)).toDouble(),
                 y = lisp(QString("(caddr (assoc 10 %1))").arg(of)).toDouble();
    driver.pick(x, y).pick(x + 50, y + 20).play();
    EXPECT_NEAR(number("(car (plv-origine p))"), before + 50, 1) << part;
    EXPECT_NEAR(number("(cadr (assoc 10 (entget (car (plv-elements p \"Voirie\")))))"), line + 50, 1) << part;
    EXPECT_EQ(number("(length (plv-ensemble p))"), whole) << part;
    EXPECT_EQ(lisp("(plv-audit)").toInt(), 0) << part;
    driver.type("U").play();
    EXPECT_NEAR(number("(car (plv-origine p))"), before, 1e-9) << part;
  }
}

// By its menu in the panel, by a click in the drawing where a command asks, by the right button over one of its lines.
TEST_F(ProfileWindow, TheCurrentProfileIsShownAndChosenByAClick) {
  driver.type(QString("(progn (plv-nouveau \"%1rue-du-moulin.csv\" \"2\" '(0.0 400.0 0.0) 10.0 2.5 nil nil) (princ))")
                  .arg(kExamples));
  driver.type("ZOOM").type("_E").play();
  EXPECT_EQ(window.currentProfile(), "");
  const double y = lisp(
                       "(cadr (plv-vers-dessin (plv-cadre (car (plv-profils))) 30.0 (plv-altitude-tn (plv-points-tn "
                       "(car (plv-profils))) 30.0)))")
                       .toDouble();
  driver.type("PLV-CHOISIR").pick(30, y + 400).play();
  EXPECT_EQ(window.currentProfile().toStdString(), "Profil courant : 2");
  EXPECT_TRUE(window.profiles().topLevelItem(1)->font(0).bold());
  // It is what Enter answers now; the keyword of the other one is a link.
  driver.type("PLV-PC").then([this] { EXPECT_TRUE(history().endsWith("<2>: ")) << history().right(80).toStdString(); });
  driver.key(Qt::Key_Escape).play();
  window.profiles().onChoose(lisp("(plv-handle (car (plv-profils)))").toString());
  until([this] { return window.currentProfile().endsWith('1'); });
  EXPECT_EQ(window.currentProfile().toStdString(), "Profil courant : 1");
  EXPECT_FALSE(window.profiles().topLevelItem(1)->font(0).bold());
  // A click on a profile in the panel answers, too.
  driver.type("PLV-CHOISIR")
      .then([this] { emit window.profiles().itemClicked(window.profiles().topLevelItem(1), 0); })
      .play();
  EXPECT_EQ(window.currentProfile().toStdString(), "Profil courant : 2");
}

}  // namespace
