// The habits of a hand: keys wherever the focus is, Escape, Enter, the right button, typed numbers, and what the history tells of it.
#include <QAction>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QRegularExpression>

#include "atelier/desktop/forms/form_command.h"
#include "atelier/desktop/forms/forms.h"
#include "tests/desktop/desktop.h"

namespace {

struct Habits : kaveltest::Desktop {
  Habits() { window.activateWindow(); }
  QLineEdit& line() { return *window.commandLine().findChild<QLineEdit*>(); }
  QPlainTextEdit& told() { return *window.commandLine().findChild<QPlainTextEdit*>(); }
  // A key as it comes from a keyboard: to the widget that has the focus.
  static void press(int key, const QString& text = {}) {
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
    QApplication::sendEvent(QApplication::focusWidget(), &event);
  }
  static void typeKeys(const QString& text) {
    for (const QChar c : text) press(c == ' ' ? int(Qt::Key_Space) : int(c.toUpper().unicode()), c);
  }
  // The entries of the menu that the right button opens at a place of the drawing; one of them is chosen.
  QStringList rightClick(double x, double y, const QString& chosen = {}) {
    const QPointF at = window.view()->viewport().pixel(x, y);
    QMouseEvent press(QEvent::MouseButtonPress, at, window.view()->mapToGlobal(at), Qt::RightButton, Qt::RightButton,
                      Qt::NoModifier);
    QApplication::sendEvent(window.view(), &press);
    QStringList entries;
    auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    if (!menu) return entries;
    for (QAction* action : menu->actions()) {
      if (!action->isSeparator()) entries << action->text();
      if (action->text() == chosen) action->trigger();
    }
    menu->close();
    return entries;
  }
  // F1; the heading at which the guide opens.
  QString openGuide() {
    for (QAction* action : window.findChildren<QAction*>())
      if (action->shortcut() == QKeySequence(Qt::Key_F1)) action->trigger();
    EXPECT_TRUE(window.guide().isVisible());
    return window.guide().heading();
  }
  std::size_t selected() { return window.view()->selection().size(); }
};

// The guide and AIDE explain each command of the front-end.
TEST_F(Habits, EveryCommandIsExplained) {
  atelier::desktop::GuideWindow guide(nullptr);
  guide.openAt({});
  const QString beginning = guide.heading();
  int seen = 0;
  for (const std::string& bound : window.drawing()->document().interpreter().boundNames()) {
    if (!bound.starts_with("C:")) continue;
    const QString command = QString::fromStdString(bound).mid(2);
    guide.openAt(command);
    EXPECT_NE(guide.heading(), beginning) << bound;
    EXPECT_TRUE(guide.heading().contains(command)) << bound << ": " << guide.heading().toStdString();
    const qsizetype before = history().size();
    driver.type("AIDE").type(command).play();
    const QString told = history().mid(before);
    EXPECT_TRUE(told.contains("\n" + command + ": ")) << told.toStdString();
    ++seen;
  }
  EXPECT_GT(seen, 30);
}

TEST_F(Habits, KeysReachTheCommandLineFromEveryPanel) {
  for (QWidget* focused :
       {static_cast<QWidget*>(&window.profiles()), static_cast<QWidget*>(&window.properties()),
        static_cast<QWidget*>(&told()), static_cast<QWidget*>(window.view()), static_cast<QWidget*>(&line())}) {
    driver.then([&] {
      focused->setFocus();
      ASSERT_EQ(QApplication::focusWidget(), focused);
      typeKeys("c ");  // two letters would open the list of names
    });
    driver.then([&] { focused->setFocus(), typeKeys("20,20 "); }).then([&] { focused->setFocus(), typeKeys("5"); });
    driver.then([&] { focused->setFocus(), press(Qt::Key_Return); }).play();
  }
  EXPECT_EQ(count("CIRCLE"), 5);
  // Enter repeats; Escape cancels the command, and then drops the selection.
  driver.then([&] { window.profiles().setFocus(), press(Qt::Key_Return); }).then([&] {
    EXPECT_TRUE(window.drawing()->waits());
    window.profiles().setFocus();
    press(Qt::Key_Escape);
  });
  driver.play();
  EXPECT_EQ(count("CIRCLE"), 5);
  driver.menu("Sélectionner tout").play();
  ASSERT_EQ(selected(), 5u);
  window.profiles().setFocus();
  press(Qt::Key_Escape);
  EXPECT_EQ(selected(), 0u);
  // From an empty command line, too, keys that mean something to the drawing reach it.
  driver.menu("Sélectionner tout").then([&] { line().setFocus(), press(Qt::Key_Delete); }).play();
  EXPECT_EQ(count("CIRCLE"), 0);
}

TEST_F(Habits, FieldsKeepTheirKeys) {
  QLineEdit field(&window);
  field.show();
  field.setFocus();
  typeKeys("rue 7");
  press(Qt::Key_Escape);
  EXPECT_EQ(field.text(), "rue 7");
  EXPECT_TRUE(line().text().isEmpty());
}

TEST_F(Habits, TheRightButtonOffersWhatFits) {
  QStringList running;
  driver.type("LINE").pick(0, 0).pick(10, 0).pick(10, 10).then([&] { running = rightClick(50, 50, "Clore"); }).play();
  for (const char* entry : {"Entrée", "Annuler la commande", "Clore", "Zoom étendu"})
    EXPECT_TRUE(running.contains(entry)) << running.join("|").toStdString();
  EXPECT_FALSE(running.contains("Effacer"));
  EXPECT_EQ(count("LINE"), 3);

  until([] { return false; }, 50);  // the driver has taken its last look
  const QStringList idle = rightClick(50, 50, "Répéter LINE");
  EXPECT_TRUE(idle.contains("Rétablir")) << idle.join("|").toStdString();
  EXPECT_FALSE(idle.contains("Effacer"));
  QTimer::singleShot(50, [this] {
    EXPECT_TRUE(window.drawing()->waits());
    rightClick(50, 50, "Annuler la commande");
  });
  until([this] { return window.drawing()->isRunning(); });
  until([this] { return !window.drawing()->isRunning(); });
  EXPECT_FALSE(window.drawing()->isRunning());
  EXPECT_EQ(count("LINE"), 3);

  driver.pick(5, 0).play();
  ASSERT_EQ(selected(), 1u);
  EXPECT_TRUE(rightClick(50, 50, "Effacer").contains("Déplacer"));
  until([this] { return count("LINE") == 2; });
  EXPECT_EQ(count("LINE"), 2);
}

// A person who types 2,5 for a radius or a scale means two and a half.
TEST_F(Habits, ACommaIsDecimalWhereANumberIsAskedFor) {
  driver.type("CIRCLE").type("20,20").type("2,5").play();
  EXPECT_EQ(lisp("(cdr (assoc 40 (entget (entlast))))").toDouble(), 2.5);
  driver.type("SCALE").type("_L").type("").type("20,20").type("1,5").play();
  EXPECT_EQ(lisp("(cdr (assoc 40 (entget (entlast))))").toDouble(), 3.75);
  driver.type("(setq n (getreal \"N: \"))").type("7,25").play();
  EXPECT_EQ(lisp("n").toDouble(), 7.25);
  driver.type("LINE").type("0,5;1").type("20,5").type("").play();
  EXPECT_EQ(lisp("(vl-princ-to-string (list (cdr (assoc 10 (entget (entlast)))) (cdr (assoc 11 (entget (entlast))))))")
                .toString(),
            "((0.5 1.0 0.0) (20.0 5.0 0.0))");
}

// What a form does is told by the name of its command; nothing that it has planned for afterwards answers its question.
TEST_F(Habits, AFormsPlansDontAnswerItsQuestions) {
  window.commandLine().clear();
  const auto choose = [](const char* number) {
    auto* const form = dynamic_cast<atelier::desktop::CommandForm*>(QApplication::activeModalWidget());
    form->field("Fichier du terrain naturel")->set(KAVEL_SOURCE "/exemples/rue-du-moulin.csv");
    form->field("Numéro du profil")->set(number);
  };
  driver.menu("Nouveau profil...").then([&] { choose("1"); });
  driver.press("Créer").pick(10, 5).play();
  EXPECT_EQ(lisp("(length (plv-profils))").toInt(), 1);
  EXPECT_TRUE(history().contains("Commande: PLV-NOUVEAU")) << history().toStdString();
  EXPECT_LT(history().indexOf("insertion"), history().indexOf("Profil 1: ")) << history().toStdString();
  for (const char* wrong : {"non valide", "(progn", "nil nil"})
    EXPECT_FALSE(history().contains(wrong)) << history().toStdString();
  // A cancelled form plans nothing.
  window.commandLine().clear();
  driver.menu("Nouveau profil...").then([&] { choose("2"); });
  driver.press("Créer").key(Qt::Key_Escape).play();
  EXPECT_EQ(lisp("(length (plv-profils))").toInt(), 1);
  EXPECT_FALSE(history().contains("Profil 2: ")) << history().toStdString();
}

TEST_F(Habits, TheHistoryTellsPointsAndCancels) {
  driver.type("LINE").pick(12.5, 7).pick(30, 7).key(Qt::Key_Escape).play();
  const QRegularExpression point("1[23]\\.\\d{4},[67]\\.\\d{4}");
  EXPECT_TRUE(history().contains(point)) << history().toStdString();
  driver.type("(getint \"N: \")").key(Qt::Key_Escape).play();
  EXPECT_TRUE(history().contains("*Annuler*")) << history().toStdString();
  EXPECT_FALSE(history().contains("cancelled")) << history().toStdString();
}

TEST_F(Habits, TheHistoryTellsWhatWasSaved) {
  driver.type("CIRCLE").type("20,20").type("5").play();
  chosenFile = file("rue.dxf");
  ASSERT_TRUE(window.save());
  EXPECT_TRUE(history().contains("enregistré dans " + file("rue.dxf"))) << history().toStdString();
}

TEST_F(Habits, TheGuideOpensAtTheRunningCommand) {
  EXPECT_EQ(openGuide().toStdString(), "Guide de Kavel");
  driver.type(QString("(progn (plv-nouveau \"%1\" \"1\" '(0.0 0.0 0.0) 10.0 2.5 nil nil) (princ))")
                  .arg(KAVEL_SOURCE "/exemples/rue-du-moulin.csv"));
  driver.type("PLV-PC").then(
      [&] { EXPECT_TRUE(openGuide().startsWith("PLV-PC :")) << window.guide().heading().toStdString(); });
  driver.key(Qt::Key_Escape).play();
  line().setText("cubpl");  // while it is being typed, and where a heading names several
  EXPECT_TRUE(openGuide().startsWith("PLV-METRES, PLV-LEGENDE et CUBPL")) << window.guide().heading().toStdString();
  line().clear();
}

// What is typed while the guide is read is typed in the command line; Escape closes the guide and leaves the command.
TEST_F(Habits, TheGuideTakesNoKeysFromTheCommandLine) {
  driver.type("LINE").then([&] {
    const auto readGuide = [&] {
      openGuide();
      until([&] { return QApplication::activeWindow() == &window.guide(); });
      ASSERT_EQ(QApplication::focusWidget(), &window.guide());
    };
    readGuide();
    press(Qt::Key_5, "5");
    EXPECT_EQ(line().text(), "5");
    line().clear();
    readGuide();
    press(Qt::Key_Escape);
    EXPECT_FALSE(window.guide().isVisible());
    EXPECT_TRUE(window.drawing()->isRunning());
  });
  driver.key(Qt::Key_Escape).play();
}

// A text is edited by a double click, a value in the panel; of several objects what they have in common.
TEST_F(Habits, PropertiesAreEditedForOneOrMany) {
  driver.type("TEXT").type("20,20").type("5").type("0").type("ancien").type("CIRCLE").type("70,30").type("8").play();
  const auto change = [&](const QString& name, const QString& value) {
    auto& panel = window.properties();
    for (int row = 0; row < panel.rowCount(); ++row)
      if (panel.item(row, 0)->text() == name) panel.item(row, 1)->setText(value);
    driver.play();
  };
  driver.pick(22, 22).play();
  ASSERT_EQ(window.view()->selection().size(), 1u);
  EXPECT_TRUE(window.properties().editField("Texte"));
  EXPECT_FALSE(window.properties().editField("Identifiant"));
  change("Texte", "nouveau");
  EXPECT_EQ(lisp("(cdr (assoc 1 (entget (ssname (ssget \"X\" '((0 . \"TEXT\"))) 0))))").toString(), "nouveau");
  change("Hauteur ou rayon", "2,5");
  EXPECT_EQ(lisp("(cdr (assoc 40 (entget (ssname (ssget \"X\" '((0 . \"TEXT\"))) 0))))").toDouble(), 2.5);
  driver.menu("Sélectionner tout").play();
  change("Couleur", "3");
  EXPECT_EQ(lisp("(sslength (ssget \"X\" '((62 . 3))))").toInt(), 2);
  change("Calque", "NULLE-PART");
  EXPECT_TRUE(history().contains("il n'y a pas de calque NULLE-PART")) << history().toStdString();
  change("Couleur", "DuCalque");
  EXPECT_EQ(lisp("(if (ssget \"X\" '((62 . 3))) 1 0)").toInt(), 0);
}

// Of more objects than are read, all are counted and changed, and none is said to be like those that were.
TEST_F(Habits, PropertiesOfThousandsOfObjectsSayWhatTheyKnow) {
  driver.type("(repeat 2100 (entmake '((0 . \"POINT\") (10 5.0 5.0 0.0))))").type("CIRCLE").type("70,30").type("8");
  driver.type("(command \"_CHPROP\" (entlast) \"\" \"_C\" \"3\" \"\")").menu("Sélectionner tout").play();
  const auto cell = [&](const QString& name) {
    const auto found = window.properties().findItems(name, Qt::MatchExactly);
    return found.isEmpty() ? nullptr : window.properties().item(found.front()->row(), 1);
  };
  ASSERT_TRUE(cell("Objets") && cell("Couleur"));
  EXPECT_EQ(cell("Objets")->text().toStdString(), "2101");
  EXPECT_EQ(cell("Couleur")->text().toStdString(), "(non comparés)");
  cell("Couleur")->setText("5");
  driver.play();
  EXPECT_EQ(lisp("(sslength (ssget \"X\" '((62 . 5))))").toInt(), 2101);
}

// With nothing selected, and while a command runs, there is nothing to erase.
TEST_F(Habits, DeleteWithNothingToEraseDoesNothing) {
  driver.type("CIRCLE").type("50,25").type("10").play();
  const auto press = [this] {
    window.view()->setFocus();
    for (QWidget* const to : {static_cast<QWidget*>(window.view()), QApplication::focusWidget()}) {
      QKeyEvent event(QEvent::KeyPress, Qt::Key_Delete, Qt::NoModifier);
      QApplication::sendEvent(to, &event);
    }
  };
  const int before = count("CIRCLE");
  press();
  driver.type("LINE").then(press).type("0,0").type("10,10").type("").play();
  EXPECT_EQ(count("CIRCLE"), before);
  EXPECT_EQ(count("LINE"), 1);
}

}  // namespace
