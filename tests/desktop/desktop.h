// A window with a visible drawing of 100 by 50 units, and helpers for its tests.
#pragma once
#include <gtest/gtest.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QMenuBar>
#include <QTemporaryDir>
#include <QTimer>

#include "atelier/desktop/document/lisp_bridge.h"
#include "atelier/desktop/window/driver.h"

namespace kaveltest {

struct Desktop : ::testing::Test {
  Desktop() {
    window.questionAnswer = [this](const QString& question) {
      questions << question;
      return answer;
    };
    window.fileAnswer = [this] { return chosenFile; };
    window.resize(1200, 800);
    window.show();
    window.open();
    driver.type("ZOOM").type("_W").type("-10,-10").type("110,60").play();
    window.view()->setFocus();
  }
  ~Desktop() override {
    answer = "non";
    window.close();
  }

  // Lets the window work until the condition holds, at most so many milliseconds.
  static void until(const std::function<bool()>& condition, int longest = 5000) {
    QElapsedTimer timer;
    for (timer.start(); !condition() && timer.elapsed() < longest;)
      QApplication::processEvents(QEventLoop::AllEvents, 20);
  }
  QVariant lisp(const QString& expression) { return atelier::desktop::ask(window.drawing()->document(), expression); }
  int count(const QString& type) {
    return lisp(QString("(if (setq kt-jeu (ssget \"X\" '((0 . \"%1\")))) (sslength kt-jeu) 0)").arg(type)).toInt();
  }
  QString file(const QString& name) const { return folder.filePath(name); }
  QString history() { return window.commandLine().text(); }

  const QTemporaryDir folder;
  QStringList questions;  // questions and messages of the window
  QString answer = "non", chosenFile;
  atelier::desktop::MainWindow window;
  atelier::desktop::Driver driver{window};
};

}  // namespace kaveltest
