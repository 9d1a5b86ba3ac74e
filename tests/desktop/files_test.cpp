// Drawings in tabs and files: saving, opening again, questions about changes, copies after a crash.
#include <QDir>
#include <QFile>

#include "tests/desktop/desktop.h"

namespace {

struct Files : kaveltest::Desktop {
  void drawCircle() { driver.type("CIRCLE").type("20,20").type("10").play(); }
};

TEST_F(Files, SavedAndOpenedAgain) {
  drawCircle();
  EXPECT_TRUE(window.isWindowModified());
  chosenFile = file("essai");
  driver.menu("Enregistrer").play();
  EXPECT_TRUE(QFile::exists(file("essai.dxf"))) << questions.join("\n").toStdString();
  EXPECT_FALSE(window.isWindowModified());
  EXPECT_EQ(window.tabs().tabText(0), "essai.dxf");
  ASSERT_TRUE(window.closeTab(0));
  EXPECT_TRUE(questions.isEmpty());
  ASSERT_TRUE(window.open(file("essai.dxf")));
  EXPECT_EQ(count("CIRCLE"), 1);
}

TEST_F(Files, EachTabHasItsOwnAutolispAndModule) {
  driver.type("(setq a 5)").play();
  drawCircle();
  driver.menu("Nouveau").type("(setq a (cons 1 a))").play();
  EXPECT_EQ(window.tabs().count(), 2);
  EXPECT_EQ(count("CIRCLE"), 0);
  EXPECT_EQ(lisp("(vl-princ-to-string a)").toString(), "(1)");
  EXPECT_EQ(lisp("(pl_distToPk 1250.5)").toString(), "PK 1+250.50");
  window.tabs().setCurrentIndex(0);
  EXPECT_EQ(lisp("a").toInt(), 5);
  EXPECT_EQ(count("CIRCLE"), 1);
  ASSERT_TRUE(window.closeTab(1));
  EXPECT_EQ(lisp("(pl_distToPk 1250.5)").toString(), "PK 1+250.50");
}

TEST_F(Files, ChangesAreAskedAbout) {
  drawCircle();
  answer = "annuler";
  EXPECT_FALSE(window.closeTab(0));
  answer = "oui";
  chosenFile = QString();  // the choice of a file is cancelled: nothing is lost
  EXPECT_FALSE(window.closeTab(0));
  chosenFile = file("garde.dxf");
  EXPECT_TRUE(window.closeTab(0));
  EXPECT_TRUE(QFile::exists(chosenFile));
  EXPECT_EQ(questions.size(), 3) << questions.join("\n").toStdString();
}

TEST_F(Files, WhatCannotBeOpenedOrSavedIsSaid) {
  QFile bad(file("faux.dxf"));
  ASSERT_TRUE(bad.open(QIODevice::WriteOnly));
  bad.write("pas un dessin\n");
  bad.close();
  EXPECT_FALSE(window.open(file("faux.dxf")));
  ASSERT_EQ(questions.size(), 1);
  EXPECT_TRUE(questions[0].contains("faux.dxf")) << questions[0].toStdString();
  EXPECT_EQ(window.tabs().count(), 1);
  drawCircle();
  chosenFile = file("absent/dossier/x.dxf");
  EXPECT_FALSE(window.save());
  EXPECT_EQ(questions.size(), 2);
  EXPECT_EQ(lisp("(pl_distToPk 1.0)").toString().toStdString(), "PK 0+1.00");  // the drawing goes on as it was
}

// After a crash the copy is offered at the next start, once.
TEST_F(Files, ACopyIsOfferedAfterACrash) {
  drawCircle();
  window.autosave();
  const QDir copies(qEnvironmentVariable("KAVEL_SAUVEGARDES"));
  ASSERT_EQ(copies.entryList({"*.dxf"}).size(), 1);
  {
    atelier::desktop::MainWindow next;
    QStringList asked;
    next.questionAnswer = [&asked](const QString& question) {
      asked << question;
      return QString(asked.size() == 1 ? "oui" : "non");
    };
    until([&next] { return next.tabs().count() > 0; });
    ASSERT_EQ(next.tabs().count(), 1);
    EXPECT_TRUE(asked[0].contains("Dessin1.dxf")) << asked[0].toStdString();
    EXPECT_EQ(atelier::desktop::ask(next.drawing()->document(), "(sslength (ssget \"X\" '((0 . \"CIRCLE\"))))").toInt(),
              1);
    EXPECT_TRUE(next.isWindowModified());
    EXPECT_TRUE(next.closeTab(0));
  }
  EXPECT_TRUE(copies.entryList({"*.dxf"}).isEmpty());
  window.drawing()->document().makeCurrent();
}

}  // namespace
