// Copies of unsaved work: when they are made, whose they are, and what becomes of them.
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QPushButton>

#include "tests/desktop/desktop.h"

namespace {

struct Recovery : kaveltest::Desktop {
  ~Recovery() override {
    for (const QString& name : copies().entryList(QDir::Files)) copies().remove(name);
  }
  void drawCircle() { driver.type("CIRCLE").type("20,20").type("10").play(); }
  QStringList drawings() const { return copies().entryList({"*.dxf"}, QDir::Files); }
  // As a window that was killed leaves it: a copy that no running program owns.
  QString leave() {
    window.autosave();
    const QString name = "0f4e3c52-9d0b-4c1e-8a55-2f1d6b7a9c01.dxf", own = drawings().value(0).section('.', 0, 0);
    EXPECT_TRUE(QFile::copy(copies().filePath(own + ".dxf"), copies().filePath(name)));
    for (const QString& note : copies().entryList({own + "*.origine"}))
      QFile::copy(copies().filePath(note), copies().filePath(QString(note).replace(own, name.section('.', 0, 0))));
    return name;
  }
  // The questions of another window at its start.
  QStringList nextStart(const QString& reply, const std::function<void(atelier::desktop::MainWindow&)>& then = {}) {
    QStringList asked;
    {
      atelier::desktop::MainWindow next;
      next.questionAnswer = [&](const QString& question) {
        asked << question;
        return reply;
      };
      next.fileAnswer = [this] { return chosenFile; };
      until([] { return false; }, 100);
      if (then) then(next);
    }
    window.drawing()->document().makeCurrent();
    return asked;
  }
  static int circles(atelier::desktop::MainWindow& of) {
    return atelier::desktop::ask(of.drawing()->document(), "(sslength (ssget \"X\" '((0 . \"CIRCLE\"))))").toInt();
  }
  static QDir copies() { return QDir(qEnvironmentVariable("KAVEL_SAUVEGARDES")); }
};

TEST_F(Recovery, ALivingWindowKeepsItsCopy) {
  drawCircle();
  window.autosave();
  ASSERT_EQ(drawings().size(), 1);
  EXPECT_EQ(nextStart("non"), QStringList());
  EXPECT_EQ(drawings().size(), 1);
}

TEST_F(Recovery, AnAbandonedCopyIsOfferedUntilTheUserDecides) {
  drawCircle();
  const QString left = leave();
  const QStringList asked = nextStart("");  // Escape
  ASSERT_EQ(asked.size(), 1);
  EXPECT_TRUE(asked[0].contains("Dessin1.dxf")) << asked[0].toStdString();
  EXPECT_TRUE(drawings().contains(left));
  nextStart("oui", [&](auto& next) {
    ASSERT_EQ(next.tabs().count(), 1);
    EXPECT_EQ(circles(next), 1);
    EXPECT_TRUE(next.isWindowModified());
    // It is this window's copy now.
    EXPECT_EQ(nextStart("oui"), QStringList());
    next.drawing()->document().makeCurrent();
    chosenFile = file("repris.dxf");
    EXPECT_TRUE(next.save());
  });
  EXPECT_FALSE(drawings().contains(left));
  EXPECT_TRUE(QFile::exists(file("repris.dxf")));
  EXPECT_EQ(nextStart("oui"), QStringList());
}

TEST_F(Recovery, ACopyHasAnotherNameThanTheNewDrawing) {
  drawCircle();
  leave();
  {
    atelier::desktop::MainWindow next;
    next.questionAnswer = [](const QString&) { return QString("oui"); };
    next.open();
    until([&] { return next.tabs().count() == 2; });
    EXPECT_EQ(next.tabs().tabText(0), "Dessin1.dxf");
    EXPECT_EQ(next.tabs().tabText(1), "Dessin1 (récupéré).dxf");
  }
  window.drawing()->document().makeCurrent();
}

TEST_F(Recovery, ACopyIsDeletedWhenTheUserSaysSo) {
  drawCircle();
  const QString left = leave();
  EXPECT_EQ(nextStart("supprimer la copie").size(), 1);
  EXPECT_FALSE(drawings().contains(left));
  EXPECT_EQ(nextStart("oui"), QStringList());
}

TEST_F(Recovery, TheQuestionTellsTheAges) {
  driver.type("SAVEAS").type(file("rue.dxf")).play();
  drawCircle();
  const QString left = leave();
  const auto setAge = [](const QString& path, int minutes) {
    QFile of(path);
    ASSERT_TRUE(of.open(QIODevice::ReadWrite));
    of.setFileTime(QDateTime::currentDateTime().addSecs(-60 * minutes - 5), QFileDevice::FileModificationTime);
  };
  setAge(copies().filePath(left), 7);
  setAge(file("rue.dxf"), 3 * 24 * 60);
  QString asked = nextStart("").value(0);
  for (const QString& part :
       {file("rue.dxf"), QString("il y a 7 minutes"), QString("il y a 3 jours"), QString("plus ancien")})
    EXPECT_TRUE(asked.contains(part)) << asked.toStdString();
  setAge(file("rue.dxf"), 1);
  asked = nextStart("").value(0);
  EXPECT_TRUE(asked.contains("plus récent")) << asked.toStdString();
  QFile::remove(file("rue.dxf"));
  asked = nextStart("").value(0);
  EXPECT_TRUE(asked.contains("n'existe plus")) << asked.toStdString();
  // What is opened of it goes by the file's name, as title blocks show it.
  nextStart("oui", [](auto& next) {
    EXPECT_EQ(atelier::desktop::ask(next.drawing()->document(), "(getvar \"DWGNAME\")").toString(), "rue.dxf");
  });
}

TEST_F(Recovery, CopiesAreMadeWhileAPromptOrADialogWaits) {
  driver.type("LINE").pick(0, 0).pick(10, 0).then([this] { EXPECT_EQ(drawings().size(), 1); });
  driver.pick(20, 10).pick(30, 0).key(Qt::Key_Escape).play();
  const QString left = copies().filePath(drawings().value(0));
  const auto lines = [&](atelier::desktop::MainWindow& of) {
    return atelier::desktop::ask(of.drawing()->document(), "(sslength (ssget \"X\" '((0 . \"LINE\"))))").toInt();
  };
  nextStart("", [&](auto& next) {
    ASSERT_TRUE(next.open(left));
    EXPECT_EQ(lines(next), 3);
    EXPECT_TRUE(next.closeTab(0));
  });
  // A dialog of the module, which holds its profiles while it is open.
  const QString examples = KAVEL_SOURCE "/exemples/";
  driver.type(
      QString("(progn (plv-nouveau \"%1rue-du-moulin.csv\" \"1\" nil 10.0 2.5 nil nil) (princ))").arg(examples));
  driver.type("PLV-PROJET").type("Projet").type("Fichier").type(examples + "rue-du-moulin-projet.csv");
  driver.type("CUBPL").press("Ajouter Profils").type("(car (plv-profils))").type("").then([this] {
    window.autosave();
  });
  driver.press("Fermer").play();
  nextStart("", [&](auto& next) {
    ASSERT_TRUE(next.open(left));
    EXPECT_EQ(lisp("(length (plv-profils))").toInt(), 1);
    EXPECT_EQ(atelier::desktop::ask(next.drawing()->document(), "(length (plv-profils))").toInt(), 1);
    EXPECT_TRUE(next.closeTab(0));
  });
}

// Without anybody asking for it.
TEST_F(Recovery, ACopyFollowsAChangeSoon) {
  drawCircle();
  until([this] { return !drawings().isEmpty(); });
  EXPECT_EQ(drawings().size(), 1);
}

TEST_F(Recovery, NothingIsLeftOverAndNothingElseIsTouched) {
  const auto put = [&](const QString& name) {
    QFile of(copies().filePath(name));
    EXPECT_TRUE(of.open(QIODevice::WriteOnly));
  };
  put("5b1c8a52-9d0b-4c1e-8a55-2f1d6b7a9c02.dxf.origine");
  put("5b1c8a52-9d0b-4c1e-8a55-2f1d6b7a9c03.dxf.4711.nouveau");
  put("lisez-moi.txt");
  put("plan.dxf");
  drawCircle();
  window.autosave();
  driver.type("SAVEAS").type(file("rue.dxf")).play();
  EXPECT_EQ(drawings(), QStringList("plan.dxf"));
  drawCircle();
  window.autosave();
  driver.menu("Enregistrer").play();
  drawCircle();
  window.autosave();
  drawCircle();
  window.autosave();
  EXPECT_EQ(copies().entryList({"*.bak"}), QStringList());
  driver.type("NEW").type("Oui").play();
  EXPECT_EQ(nextStart("oui"), QStringList());
  EXPECT_EQ(copies().entryList(QDir::Files), QStringList({"lisez-moi.txt", "plan.dxf"}));
}

}  // namespace
