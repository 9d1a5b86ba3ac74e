// Menus of the files that were used last: what commands took stands there, a click begins the command with it again.
#include <QSettings>

#include "atelier/desktop/forms/form_command.h"
#include "tests/desktop/desktop.h"

namespace {

using atelier::desktop::CommandForm;

struct Recent : kaveltest::Desktop {
  Recent() {
    forget();
    survey = copied("rue-du-moulin.csv", "rue.csv");
    definition = copied("matrices-eau-potable.txt", "a moi.txt");
  }
  ~Recent() override { forget(); }
  static void forget() {
    for (const char* list : {"levesRecents", "definitionsRecentes", "fiches/PLV-NOUVEAU/fichier"})
      QSettings().remove(list);
  }
  QString copied(const char* example, const char* name) {
    EXPECT_TRUE(QFile::copy(QString(KAVEL_SOURCE "/exemples/") + example, file(name)));
    return file(name);
  }
  static CommandForm* form() { return dynamic_cast<CommandForm*>(QApplication::activeModalWidget()); }
  // What a menu shows when it opens.
  QStringList shown(const QString& title) {
    QStringList entries;
    for (QMenu* menu : window.menuBar()->findChildren<QMenu*>()) {
      if (menu->title() != title) continue;
      emit menu->aboutToShow();
      for (const QAction* entry : menu->actions()) entries << entry->text();
    }
    return entries;
  }
  void create(const char* number) {
    driver.type("PLV-NOUVEAU").type(survey);
    for (const char* reply : {number, "0,0", "10", "2.5", "150", ""}) driver.type(reply);
    driver.play();
  }
  int profiles() { return lisp("(length (plv-profils))").toInt(); }
  QString survey, definition;
};

TEST_F(Recent, SurveysBeginProfiles) {
  EXPECT_EQ(shown("Levés récents"), QStringList{"(aucun)"});
  create("1");
  ASSERT_EQ(shown("Levés récents"), QStringList{survey}) << history().toStdString();
  // A form that is given up took nothing, and a profile that was refused neither.
  driver.menu("Nouveau profil...").then([this] {
    form()->field("Fichier du terrain naturel")->set(copied("rue-du-moulin.csv", "autre.csv"));
    form()->look();
    form()->reject();
  });
  driver.play();
  survey = file("autre.csv");
  driver.type("PLV-NOUVEAU").type(survey).type("1").key(Qt::Key_Escape).play();
  EXPECT_EQ(profiles(), 1);
  EXPECT_EQ(shown("Levés récents"), QStringList{file("rue.csv")});
  driver.menu(file("rue.csv")).then([this] {
    ASSERT_TRUE(form());
    EXPECT_EQ(form()->field("Fichier du terrain naturel")->value().toString(), file("rue.csv"));
    form()->field("Point d'insertion, ou rien pour le cliquer")->set("0,400");
  });
  driver.press("Créer").play();
  EXPECT_EQ(profiles(), 2) << history().toStdString();
  // A replaced survey is the newest one; a file that is gone leaves the menu.
  driver.type("PLV-LEVE").type("1").type("Remplacer").type(file("autre.csv")).play();
  EXPECT_EQ(shown("Levés récents"), (QStringList{file("autre.csv"), file("rue.csv")})) << history().toStdString();
  QFile::remove(file("rue.csv"));
  EXPECT_EQ(shown("Levés récents"), QStringList{file("autre.csv")});
}

TEST_F(Recent, DefinitionsDrawTables) {
  create("1");
  // A model has its name, and no place among the files.
  driver.type("PLV-MATRICES").type("route").type("").play();
  EXPECT_EQ(shown("Définitions récentes"), QStringList{"(aucun)"});
  driver.type("PLV-MATRICES").type(definition).type("").play();
  ASSERT_EQ(shown("Définitions récentes"), QStringList{definition}) << history().toStdString();
  driver.type("PLV-MATRICES").type("route").type("").play();
  const QString tables = "(apply 'strcat (mapcar 'plv-matrice-nom (plv-tables (car (plv-profils)))))";
  const QString road = lisp(tables).toString();
  driver.menu(definition).until([] {
    return form() && form()->field("Modèle") && form()->field("Modèle")->value().toString().isEmpty();
  });
  driver.press("Dessiner").play();
  EXPECT_NE(lisp(tables).toString(), road) << history().toStdString();
  EXPECT_EQ(lisp("(plv-matrices:fichier (car (plv-profils)))").toString(), definition);
}

}  // namespace
