// Work that takes over half a second is shown and can be stopped; a command that was stopped leaves the drawing as it was.
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QKeyEvent>
#include <QPointer>
#include <QProgressDialog>
#include <QPushButton>

#include "atelier/base/error.h"
#include "atelier/base/interruption.h"
#include "atelier/desktop/forms/forms.h"
#include "tests/desktop/desktop.h"

namespace {

struct LongWork : kaveltest::Desktop {
  ~LongWork() override { atelier::desktop::LongWork::shownAfter = 500, atelier::desktop::LongWork::pause = 50; }
  static QProgressDialog* shown() { return qobject_cast<QProgressDialog*>(QApplication::activeModalWidget()); }
  // Looks every few milliseconds, also inside the events of a command; stops the first long work.
  void stopWhenShown() {
    QTimer::singleShot(5, &window, [this] {
      if (!shown()) return stopWhenShown();
      label = shown()->labelText();
      shown()->findChild<QPushButton*>()->click();
    });
  }
  void lines(int count) {
    driver
        .type(QString("(progn (setq i 0) (repeat %1 (entmake (list '(0 . \"LINE\") (list 10 (* 1.0 i) 0.0 0.0) (list "
                      "11 (* 1.0 i) 9.0 0.0)))"
                      " (setq i (1+ i))) (princ))")
                  .arg(count))
        .play();
  }
  QString label;
};

TEST_F(LongWork, CommandsOfTheHostAreStopped) {
  lines(300000);
  atelier::desktop::LongWork::shownAfter = 60;
  stopWhenShown();
  driver.type("COPY").type("_ALL").type("").type("0,0").type("0,20").then([this] {
    if (window.drawing()->waits()) window.commandLine().onLine({});
  });
  driver.play();
  EXPECT_TRUE(label.startsWith("COPY")) << label.toStdString();
  EXPECT_EQ(count("LINE"), 300000);
  EXPECT_FALSE(shown());
  EXPECT_FALSE(window.drawing()->isRunning());
}

// One whose objects are changed one after the other, and one of a program, after what it has asked.
TEST_F(LongWork, ACommandThatIsStoppedHasChangedNothing) {
  lines(200000);
  driver.type("CIRCLE").type("0,0").type("5").play();
  lisp(
      "(defun c:essai (/ e) (getpoint \"\\nOù: \") (setq e (entnext)) (while e (entmod (subst '(8 . \"A\") (assoc 8 "
      "(entget e)) "
      "(entget e))) (setq e (entnext e))) (while T))");
  atelier::desktop::LongWork::shownAfter = 60;
  const char* const moved =
      "(+ (if (setq s (ssget \"X\" '((-4 . \"*,>,*\") (11 0.0 15.0 0.0)))) (sslength s) 0)"
      " (if (setq s (ssget \"X\" '((8 . \"A\")))) (sslength s) 0))";
  stopWhenShown();
  driver.type("MOVE").type("_ALL").type("").type("0,0").type("0,20").play();
  EXPECT_TRUE(label.startsWith("MOVE")) << label.toStdString();
  EXPECT_EQ(lisp(moved).toInt(), 0);
  label.clear();
  stopWhenShown();
  driver.type("ESSAI").type("1,1").play();
  EXPECT_TRUE(label.startsWith("ESSAI")) << label.toStdString();
  EXPECT_EQ(lisp(moved).toInt(), 0);
  driver.type("U").play();
  EXPECT_EQ(count("CIRCLE"), 0) << "the step before";
  EXPECT_EQ(count("LINE"), 200000);
}

// An event that looks at a drawing, of another tab for one, asks the same question as the command: an answer that is thrown would break
// the loops of the event system.
TEST_F(LongWork, EventsAreNotStoppedWithTheCommand) {
  bool thrown = false, looked = false;
  std::function<void()> stop = [&] {
    if (!shown()) return QTimer::singleShot(5, &window, stop);
    shown()->findChild<QPushButton*>()->click();
    looked = true;
    try {
      atelier::checkInterruption();
    } catch (const atelier::Interrupted&) {
      thrown = true;
    }
  };
  stop();
  driver.type("(while T)").play();
  EXPECT_TRUE(looked);
  EXPECT_FALSE(thrown);
  EXPECT_FALSE(window.drawing()->isRunning());
}

// Those of the plug-ins, which call little of the host: one that draws as it goes, and one that only computes.
TEST_F(LongWork, SearchesForALineAreStopped) {
  QFile survey(file("long.csv"));
  survey.open(QIODevice::WriteOnly);
  survey.write("distance;altitude\n");
  for (int k = 0; k < 8000; ++k) survey.write(QStringLiteral("%1;%2\n").arg(k).arg(20 + k * 37 % 11 * 0.1).toUtf8());
  survey.close();
  driver.type(QStringLiteral("(progn (setq p (plv-nouveau \"%1\" \"1\" '(0.0 0.0 0.0) 10.0 2.5 nil nil)) (princ))")
                  .arg(file("long.csv")));
  driver.play();
  const int drawn = count("LWPOLYLINE");
  atelier::desktop::LongWork::shownAfter = 60;
  for (const char* call :
       {"(plv-optimal-recherche p \"Voirie\" (plv-souhait '(0.0 19.75) '(7999.0 20.55) 0.2 0.3 nil nil) nil)",
        "(et_ligneCout p 0.2 3.0 0.0 7999.0 nil '((\"fouille\" 9.0 2.0 10.0) (\"espacement\" 80.0 5.0)))"}) {
    label.clear();
    lisp(QString("(progn (setq fait nil) (defun c:essai () %1 (setq fait T)))").arg(call));
    stopWhenShown();
    driver.type("ESSAI").play();
    EXPECT_TRUE(label.startsWith("ESSAI")) << call;
    EXPECT_TRUE(lisp("(not fait)").toBool()) << call;
    EXPECT_EQ(count("LWPOLYLINE"), drawn) << call;
    EXPECT_FALSE(window.drawing()->isRunning());
  }
}

// They were typed for what was in front before.
TEST_F(LongWork, EnterAndBlankDoNotStop) {
  bool goesOn = false;
  std::function<void()> hand = [&] {
    if (!shown()) return QTimer::singleShot(5, &window, hand);
    const QPointer<QProgressDialog> dialog(shown());
    QWidget* const inside = dialog->focusWidget();
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Space})
      for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, Qt::NoModifier);
        if (dialog) QApplication::sendEvent(inside ? inside : dialog, &event);
      }
    goesOn = dialog && !dialog->wasCanceled();
    if (goesOn) dialog->findChild<QPushButton*>()->click();
  };
  hand();
  driver.type("(while T)").play();
  EXPECT_TRUE(goesOn);
}

TEST_F(LongWork, ProgramsAreStopped) {
  stopWhenShown();
  driver.type("(progn (setq n 0) (while T (setq n (1+ n))))").play();
  EXPECT_FALSE(label.isEmpty());
  EXPECT_FALSE(shown());
  EXPECT_GT(lisp("n").toInt(), 0);
}

// Work of the window itself: what was stopped has left drawing, tabs and file as they were, and can be done again.
TEST_F(LongWork, SavingIsStopped) {
  lines(200000);
  chosenFile = file("lignes.dxf");
  ASSERT_TRUE(window.save());
  const qint64 whole = QFileInfo(chosenFile).size();
  driver.type("ERASE").type("_L").type("").play();
  atelier::desktop::LongWork::shownAfter = 20;
  stopWhenShown();
  EXPECT_FALSE(window.save());
  EXPECT_TRUE(label.startsWith("Enregistrement")) << label.toStdString();
  EXPECT_EQ(QFileInfo(chosenFile).size(), whole);
  EXPECT_TRUE(window.drawing()->isModified());
  EXPECT_FALSE(shown());
  EXPECT_TRUE(questions.isEmpty()) << questions.join('\n').toStdString();
  atelier::desktop::LongWork::shownAfter = 60000;
  EXPECT_TRUE(window.save());
  EXPECT_LT(QFileInfo(chosenFile).size(), whole);
}

// Every question of the reader whether to stop is a look, however fast it reads; the first one that shows the work is answered.
struct StopAtOnce : QObject {
  QString label;
  bool eventFilter(QObject* object, QEvent* event) override {
    auto* const shown = qobject_cast<QProgressDialog*>(object);
    if (!shown || event->type() != QEvent::Show) return false;
    QTimer::singleShot(0, shown, [this, shown] {
      label = shown->labelText();
      shown->findChild<QPushButton*>()->click();
    });
    return false;
  }
};

TEST_F(LongWork, PlotsAndTheirPreviewsAreStopped) {
  lines(20000);
  driver.menu("Tracer...").then([this] {
    auto& form = *dynamic_cast<atelier::desktop::PlotForm*>(QApplication::activeModalWidget());
    form.file->setText(file("lignes.pdf"));
    StopAtOnce hand;
    qApp->installEventFilter(&hand);
    atelier::desktop::LongWork::shownAfter = atelier::desktop::LongWork::pause = 0;
    emit form.scale->editingFinished();
    EXPECT_TRUE(hand.label.startsWith("Aperçu")) << hand.label.toStdString();
    EXPECT_TRUE(form.picture().isNull());
    form.accept();
    EXPECT_TRUE(hand.label.startsWith("Tracé")) << hand.label.toStdString();
    qApp->removeEventFilter(&hand);
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(QDir(folder.path()).entryList({"lignes.pdf*"}), QStringList());
    atelier::desktop::LongWork::shownAfter = 60000;
    form.accept();
  });
  driver.play();
  EXPECT_TRUE(QFileInfo::exists(file("lignes.pdf")));
}

TEST_F(LongWork, OpeningIsStopped) {
  lines(20000);
  chosenFile = file("lignes.dxf");
  ASSERT_TRUE(window.save());
  ASSERT_TRUE(window.closeTab(0));
  window.open();
  driver.type("CIRCLE").type("0,0").type("20").play();
  const QString title = window.windowTitle();
  StopAtOnce hand;
  qApp->installEventFilter(&hand);
  atelier::desktop::LongWork::shownAfter = atelier::desktop::LongWork::pause = 0;
  EXPECT_FALSE(window.open(chosenFile));
  qApp->removeEventFilter(&hand);
  EXPECT_TRUE(hand.label.startsWith("Ouverture")) << hand.label.toStdString();
  EXPECT_EQ(window.tabs().count(), 1);
  EXPECT_EQ(window.windowTitle(), title);
  EXPECT_EQ(count("CIRCLE"), 1) << "the drawing in front is current";
  EXPECT_FALSE(shown());
  EXPECT_TRUE(questions.isEmpty()) << questions.join('\n').toStdString();
  EXPECT_TRUE(history().contains("arrêtée"));
  atelier::desktop::LongWork::shownAfter = 60000;
  EXPECT_TRUE(window.open(chosenFile)) << "it isn't locked";
  EXPECT_EQ(count("LINE"), 20000);
}

}  // namespace
