// Drawings in tabs and files: saving, opening again, questions about changes, damaged files.
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

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

// Findings on the profiles are told with those on the drawing, each on a line of its own.
TEST_F(Files, WhatIsWrongWithAProfileOfADamagedFileIsTold) {
  driver.type(
      QString("(progn (plv-nouveau \"%1/exemples/rue-du-moulin.csv\" \"7\" '(0.0 0.0 0.0) 10.0 2.5 nil nil) (princ))")
          .arg(KAVEL_SOURCE));
  driver.type("SAVEAS").type(file("abime.dxf")).play();
  ASSERT_TRUE(window.closeTab(0));
  QFile damaged(file("abime.dxf"));
  ASSERT_TRUE(damaged.open(QIODevice::ReadWrite));
  QByteArray bytes = damaged.readAll();
  const qsizetype line = bytes.indexOf("AcDbLine", bytes.indexOf("NEXTLI"));
  bytes.replace(bytes.indexOf('\n', line) + 1, 3, "zz ");
  damaged.seek(0);
  damaged.write(bytes);
  damaged.close();
  answer = "oui";
  ASSERT_TRUE(window.open(file("abime.dxf")));
  ASSERT_EQ(questions.size(), 2);
  for (const QString& told : {questions[1], history()})
    EXPECT_TRUE(told.contains("\nP02 réparé")) << told.toStdString();
  EXPECT_TRUE(QRegularExpression("\n0 erreurs, \\d+ réparées, \\d+ constats$").match(questions[1]).hasMatch())
      << questions[1].toStdString();
}

TEST_F(Files, ASurveyIsNoDamagedDrawing) {
  QFile survey(file("leve.csv"));
  ASSERT_TRUE(survey.open(QIODevice::WriteOnly));
  survey.write("distance;altitude\n0;100\n50;101\n");
  survey.close();
  EXPECT_FALSE(window.open(file("leve.csv")));
  ASSERT_EQ(questions.size(), 1);
  EXPECT_TRUE(questions[0].contains("leve.csv:1: ce n'est pas un dessin DXF") &&
              questions[0].contains("Nouveau profil"))
      << questions[0].toStdString();
  EXPECT_EQ(window.tabs().count(), 1);
}

// A file that ends in the middle of a circle.
TEST_F(Files, ADamagedFileIsOfferedForRecoveryWithWhatWasFound) {
  drawCircle();
  driver.type("LINE").type("0,0").type("50,50").type("").type("SAVEAS").type(file("coupe.dxf")).play();
  ASSERT_TRUE(window.closeTab(0));
  QFile cut(file("coupe.dxf"));
  ASSERT_TRUE(cut.open(QIODevice::ReadWrite));
  const QByteArray bytes = cut.readAll();
  cut.resize(bytes.lastIndexOf("AcDbLine") + 12);
  cut.close();
  const QByteArray damaged = bytes.left(static_cast<int>(QFileInfo(cut).size()));
  EXPECT_FALSE(window.open(file("coupe.dxf")));  // the answer is "non"
  ASSERT_EQ(questions.size(), 1);
  EXPECT_TRUE(questions[0].contains("endommagé")) << questions[0].toStdString();
  EXPECT_EQ(window.tabs().count(), 0);

  answer = "oui";
  chosenFile = file("sauve.dxf");
  ASSERT_TRUE(window.open(file("coupe.dxf")));
  ASSERT_EQ(questions.size(), 3);
  // What was found is listed with its line, in the message and in the history.
  EXPECT_TRUE(questions[2].contains("ligne")) << questions[2].toStdString();
  EXPECT_TRUE(history().contains(questions[2].section('\n', 2, 2))) << history().toStdString();
  EXPECT_EQ(count("CIRCLE"), 1);
  EXPECT_TRUE(window.isWindowModified());
  // It is saved under another name; the damaged file stays.
  ASSERT_TRUE(window.save());
  EXPECT_TRUE(QFile::exists(file("sauve.dxf")));
  ASSERT_TRUE(cut.open(QIODevice::ReadOnly));
  EXPECT_EQ(cut.readAll(), damaged);
  ASSERT_TRUE(window.closeTab(0));
  ASSERT_TRUE(window.open(file("sauve.dxf")));
  EXPECT_EQ(questions.size(), 3) << questions.join("\n").toStdString();
  EXPECT_EQ(count("CIRCLE"), 1);
}

TEST_F(Files, LeavingAsksOnceForAllDrawings) {
  drawCircle();
  driver.menu("Nouveau").play();
  EXPECT_EQ(atelier::desktop::ask(window.drawing()->document(), "(getvar \"DWGNAME\")").toString(), "Dessin2.dxf");
  drawCircle();
  answer = "annuler";
  EXPECT_FALSE(window.close());
  EXPECT_EQ(window.tabs().count(), 2);
  ASSERT_EQ(questions.size(), 1) << questions.join("\n").toStdString();
  for (const char* name : {"Dessin1.dxf", "Dessin2.dxf"})
    EXPECT_TRUE(questions[0].contains(name)) << questions[0].toStdString();
  // Saving the second one is given up: both stay.
  answer = "oui";
  int choices = 0;
  window.fileAnswer = [&] { return ++choices == 1 ? file("un.dxf") : QString(); };
  EXPECT_FALSE(window.close());
  EXPECT_EQ(choices, 2);
  EXPECT_EQ(window.tabs().count(), 2);
  EXPECT_TRUE(QFile::exists(file("un.dxf")));
  // The first one is saved now: only the other one is asked about.
  window.fileAnswer = [this] { return file("deux.dxf"); };
  EXPECT_TRUE(window.close());
  EXPECT_FALSE(questions.last().contains("un.dxf")) << questions.last().toStdString();
  EXPECT_TRUE(QFile::exists(file("deux.dxf")));
  EXPECT_EQ(window.tabs().count(), 0);
}

TEST_F(Files, LeavingARunningCommandAsksAndCancelsAsAWhole) {
  for (const bool menu : {false, true}) {
    questions.clear();
    answer = "annuler";
    driver.type("LINE").pick(0, 0).pick(10, 0).then([&] {
      if (menu) window.perform("@quit");
      else EXPECT_FALSE(window.close());
      EXPECT_EQ(questions.size(), 1) << questions.join("\n").toStdString();
      EXPECT_TRUE(questions.value(0).contains("commande")) << questions.value(0).toStdString();
      EXPECT_TRUE(window.drawing()->waits());  // the command goes on
    });
    driver.pick(20, 5).type("").play();
  }
  EXPECT_EQ(count("LINE"), 4);
  questions.clear();
  answer = "oui";
  chosenFile = file("garde.dxf");
  driver.type("LINE").pick(0, 0).pick(10, 0).then([&] { window.close(); }).play();
  until([this] { return !window.isVisible(); });
  EXPECT_FALSE(window.isVisible());
  EXPECT_EQ(questions.size(), 1) << questions.join("\n").toStdString();
  EXPECT_TRUE(QFile::exists(chosenFile));
}

}  // namespace
