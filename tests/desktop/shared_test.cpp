// One file, several tabs and programs: what the window tells, brings to the front and doesn't overwrite unasked.
#include <QDropEvent>
#include <QFile>
#include <QLineEdit>
#include <QMimeData>
#include <QUrl>

#include "tests/desktop/desktop.h"

namespace {

struct Shared : kaveltest::Desktop {
  Shared() {
    driver.type("CIRCLE").type("20,20").type("10").type("SAVEAS").type(file("rue.dxf")).play();
    window.closeTab(0);
  }
  void put(const QString& name, const QByteArray& contents) {
    QFile of(file(name));
    ASSERT_TRUE(of.open(QIODevice::WriteOnly));
    of.write(contents);
  }
  QByteArray get(const QString& name) {
    QFile of(file(name));
    EXPECT_TRUE(of.open(QIODevice::ReadOnly));
    return of.readAll();
  }
  void drop(const QString& path) {
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(path)});
    QDropEvent event(QPointF(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    static_cast<QObject&>(window).event(&event);
  }
};

TEST_F(Shared, AFileThatIsOpenIsBroughtToTheFront) {
  ASSERT_TRUE(window.open(file("rue.dxf")));
  driver.type("LINE").type("0,0").type("9,9").type("").menu("Nouveau").play();
  ASSERT_TRUE(QFile::link(file("rue.dxf"), file("lien.dxf")));
  for (const QString& name : {file("rue.dxf"), folder.path() + "/./rue.dxf", file("lien.dxf")}) {
    window.tabs().setCurrentIndex(1);
    ASSERT_TRUE(window.open(name));
    EXPECT_EQ(window.tabs().count(), 2) << name.toStdString();
    EXPECT_EQ(window.tabs().currentIndex(), 0);
    EXPECT_EQ(count("LINE"), 1);
  }
  EXPECT_TRUE(questions.isEmpty()) << questions.join("\n").toStdString();
}

// A typed OPEN and a save under that name reach the file of another tab: neither tab's work is replaced unasked.
TEST_F(Shared, TwoTabsDontOverwriteEachOther) {
  ASSERT_TRUE(window.open(file("rue.dxf")));
  driver.menu("Nouveau").type("LINE").type("0,0").type("9,9").type("").play();
  const QByteArray before = get("rue.dxf");
  chosenFile = file("rue.dxf");
  EXPECT_FALSE(window.save(true));
  EXPECT_TRUE(questions.value(0).contains("aussi ouvert")) << questions.join("\n").toStdString();
  EXPECT_EQ(get("rue.dxf"), before);
  answer = "oui";
  EXPECT_TRUE(window.save(true));
  answer = "non";
  window.tabs().setCurrentIndex(0);
  questions.clear();
  EXPECT_FALSE(window.save());
  EXPECT_EQ(questions.size(), 1);
}

TEST_F(Shared, ADrawingOfAnotherProgramIsOfferedForReadingOnly) {
  put("rue.dxf.verrou", "pc-du-bureau 4242\n");
  EXPECT_FALSE(window.open(file("rue.dxf")));  // the answer is "non"
  ASSERT_EQ(questions.size(), 1);
  EXPECT_TRUE(questions[0].contains("pc-du-bureau")) << questions[0].toStdString();
  EXPECT_EQ(window.tabs().count(), 0);
  answer = "oui";
  ASSERT_TRUE(window.open(file("rue.dxf")));
  EXPECT_EQ(window.tabs().tabText(0), "rue.dxf (lecture seule)");
  // It is saved under another name, and is then a drawing like others; the other program's lock stays.
  const QByteArray before = get("rue.dxf");
  driver.type("LINE").type("0,0").type("9,9").type("").play();
  chosenFile = file("rue-copie.dxf");
  EXPECT_TRUE(window.save());
  EXPECT_EQ(window.tabs().tabText(0), "rue-copie.dxf");
  EXPECT_EQ(get("rue.dxf"), before);
  EXPECT_TRUE(QFile::exists(file("rue.dxf.verrou")));
  questions.clear();
  chosenFile.clear();
  EXPECT_TRUE(window.save());
  EXPECT_TRUE(questions.isEmpty()) << questions.join("\n").toStdString();
}

TEST_F(Shared, AFileThatChangedOnDiskIsReplacedOnlyWhenTheUserSaysSo) {
  ASSERT_TRUE(window.open(file("rue.dxf")));
  driver.type("LINE").type("0,0").type("9,9").type("").play();
  const QByteArray others = get("rue.dxf") + "999\nchanged\n";
  put("rue.dxf", others);
  EXPECT_FALSE(window.save());
  ASSERT_EQ(questions.size(), 1);
  EXPECT_TRUE(questions[0].contains("a changé depuis")) << questions[0].toStdString();
  EXPECT_EQ(get("rue.dxf"), others);
  EXPECT_TRUE(window.isWindowModified());
  answer = "oui";
  EXPECT_TRUE(window.save());
  EXPECT_NE(get("rue.dxf"), others);
  EXPECT_FALSE(window.isWindowModified());
}

// What comes to the front while a command runs waits until that command has ended in its own drawing.
TEST_F(Shared, ADropEndsTheRunningCommandFirst) {
  window.open();
  driver.type("(defun *error* (m) (setq fin (getvar \"DWGNAME\")))").play();
  driver.type("(progn (setq depart (getvar \"DWGNAME\")) (getpoint \"Point: \"))").then([this] {
    drop(file("rue.dxf"));
  });
  driver.play();
  until([this] { return window.tabs().count() == 2; });
  ASSERT_EQ(window.tabs().count(), 2);
  EXPECT_EQ(count("CIRCLE"), 1);
  window.tabs().setCurrentIndex(0);
  EXPECT_EQ(lisp("fin").toString().toStdString(), lisp("depart").toString().toStdString());
}

TEST_F(Shared, QuitLeavesTheProgram) {
  window.open();
  driver.type("LINE").type("0,0").type("9,9").type("").menu("Nouveau").play();
  driver.type("LINE").type("0,0").type("9,9").type("").play();
  // The command asks about its own drawing, the window about the others.
  answer = "annuler";
  driver.type("QUIT").type("Oui").play();
  until([this] { return !questions.isEmpty(); });
  ASSERT_EQ(questions.size(), 1);
  EXPECT_FALSE(questions[0].contains(window.tabs().tabText(1))) << questions[0].toStdString();
  EXPECT_TRUE(window.isVisible());
  EXPECT_TRUE(window.drawing()->isModified());
  answer = "non";
  driver.type("QUIT").type("Oui").play();
  until([this] { return !window.isVisible(); });
  EXPECT_FALSE(window.isVisible());
}

}  // namespace
