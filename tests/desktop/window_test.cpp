// The window's own parts by their keys and clicks: command line, keywords, completion, forms that plot, files that are dropped.
#include <QDropEvent>
#include <QFile>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMimeData>
#include <QSettings>
#include <QUrl>

#include "atelier/desktop/forms/forms.h"
#include "atelier/desktop/window/theme.h"
#include "tests/desktop/desktop.h"

namespace {

struct Window : kaveltest::Desktop {
  QLineEdit& line() { return *window.commandLine().findChild<QLineEdit*>(); }
  QLabel& prompt() { return *window.commandLine().findChild<QLabel*>(); }
  // Keys as they come from a keyboard, to the widget that has the focus or to the view.
  void press(QWidget& widget, int key, const QString& text = {}, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QKeyEvent event(QEvent::KeyPress, key, modifiers, text);
    QApplication::sendEvent(&widget, &event);
  }
  void typeInto(QWidget& widget, const QString& text) {
    for (const QChar c : text) press(widget, c == ' ' ? int(Qt::Key_Space) : int(c.toUpper().unicode()), c);
  }
};

TEST_F(Window, KeysOverTheDrawingReachTheCommandLine) {
  driver.then([this] { typeInto(*window.view(), "CIRCLE"); });
  driver.then([this] { press(line(), Qt::Key_Return); });
  // A blank ends a word at a prompt for a point.
  driver.then([this] { typeInto(line(), "20,20 "); }).then([this] { typeInto(line(), "5 "); }).play();
  EXPECT_EQ(count("CIRCLE"), 1);
  // Inside an expression, and where texts are asked for, it is a blank.
  driver.then([this] { typeInto(line(), "(setq a (list 1 2))"); })
      .then([this] { press(line(), Qt::Key_Return); })
      .play();
  EXPECT_EQ(lisp("(length a)").toInt(), 2);
  driver.type("(setq s (getstring T \"Nom: \"))").then([this] { typeInto(line(), "rue du moulin"); });
  driver.then([this] { press(line(), Qt::Key_Return); }).play();
  EXPECT_EQ(lisp("s").toString().toStdString(), "rue du moulin");
}

TEST_F(Window, EnterRepeatsAndArrowsBringBackWhatWasTyped) {
  driver.type("(setq n (1+ (cond (n) (0))))").play();
  // Lines from onLine are run; typed lines are kept in the history, too.
  driver.then([this] { typeInto(line(), "(setq m 3)"); }).then([this] { press(line(), Qt::Key_Return); }).play();
  driver.then([this] { press(line(), Qt::Key_Return); }).play();
  EXPECT_EQ(lisp("m").toInt(), 3);
  press(line(), Qt::Key_Up);
  EXPECT_EQ(line().text(), "(setq m 3)");
  press(line(), Qt::Key_Down);
  EXPECT_EQ(line().text(), "");
  typeInto(line(), "abc");
  press(line(), Qt::Key_Escape);
  EXPECT_EQ(line().text(), "");
}

TEST_F(Window, KeywordsOfThePromptAreLinks) {
  driver.type("LINE").pick(0, 0).pick(10, 0).pick(10, 10).then([this] {
    EXPECT_TRUE(prompt().text().contains("<a href=\"Clore\">Clore</a>")) << prompt().text().toStdString();
    emit prompt().linkActivated("Clore");
  });
  driver.play();
  EXPECT_EQ(count("LINE"), 3);
  EXPECT_EQ(prompt().text(), "Commande :");
}

TEST_F(Window, NamesAreCompletedAtTheCommandPromptOnly) {
  auto* const names = line().findChild<atelier::desktop::CompletionList*>();
  typeInto(line(), "PLV-NOU");
  EXPECT_TRUE(names->isVisible());
  EXPECT_EQ(names->model()->index(0, 0).data().toString(), "PLV-NOUVEAU");
  press(line(), Qt::Key_Escape);
  EXPECT_FALSE(names->isVisible());
  EXPECT_EQ(line().text(), "PLV-NOU");
  line().clear();
  driver.type("(setq s (getstring \"Nom: \"))").then([&] {
    typeInto(line(), "PLV-MAT");
    EXPECT_FALSE(names->isVisible());
    line().clear();
  });
  driver.type("x").play();
}

// Keys that come while the names are shown, or going, are the line's.
TEST_F(Window, NamesThatAreShownLeaveTheLineItsKeys) {
  auto* const names = line().findChild<atelier::desktop::CompletionList*>();
  typeInto(line(), "CIRCL");
  ASSERT_TRUE(names->isVisible());
  EXPECT_FALSE(QApplication::activePopupWidget());
  press(line(), Qt::Key_Down);
  press(line(), Qt::Key_Return);
  EXPECT_EQ(line().text(), "CIRCLE") << "written, not yet sent";
  EXPECT_FALSE(names->isVisible());
  line().clear();
  typeInto(line(), "(princ 7");
  EXPECT_FALSE(names->isVisible());
  line().clear();
  typeInto(line(), "CIR");
  press(line(), Qt::Key_Return);
  EXPECT_EQ(line().text(), "") << "sent as it is typed";
  EXPECT_FALSE(names->isVisible());
}

TEST_F(Window, APlotIsMadeByItsForm) {
  driver.type("CIRCLE").type("0,0").type("20").menu("Tracer...").then([this] {
    auto& form = *dynamic_cast<atelier::desktop::PlotForm*>(QApplication::activeModalWidget());
    form.scale->setText("1:0");
    emit form.scale->editingFinished();
    form.accept();  // a scale that can't be: the form stays
    EXPECT_TRUE(form.isVisible());
    form.scale->setText("1:1000");
    form.paper->setCurrentIndex(1);
    form.file->setText(file("plan.pdf"));
  });
  driver.press("Tracer").play();
  QFile plot(file("plan.pdf"));
  ASSERT_TRUE(plot.open(QIODevice::ReadOnly));
  EXPECT_TRUE(plot.readAll().startsWith("%PDF"));
  EXPECT_TRUE(history().contains("plan.pdf"));
}

TEST_F(Window, APlotsPreviewIsTheWholeSheetOnASmallScreen) {
  driver.type("LINE").type("0,0").type("20,60").type("");
  driver.menu("Tracer...").then([] {
    auto& form = *dynamic_cast<atelier::desktop::PlotForm*>(QApplication::activeModalWidget());
    form.resize(form.minimumSizeHint());
    EXPECT_LE(form.height(), 500) << "a screen of 1000 pixels at 200 %";
    QRect paper;
    for (QLabel* label : form.findChildren<QLabel*>()) {
      if (label->pixmap().isNull()) continue;
      const QImage shown = label->grab().toImage();
      for (int y = 0; y < shown.height(); ++y)
        for (int x = 0; x < shown.width(); ++x)
          if (shown.pixelColor(x, y) == Qt::white) paper |= QRect(x, y, 1, 1);
    }
    EXPECT_GT(paper.width(), 50);
    EXPECT_NEAR(double(paper.height()) / std::max(1, paper.width()), 297.0 / 210.0, 0.05);
  });
  driver.press("Annuler").play();
}

TEST_F(Window, APlotHasTheTableThatIsChosen) {
  const auto strokes = [this](const QString& name) {
    QFile plot(file(name));
    return plot.open(QIODevice::ReadOnly) ? QString::fromUtf8(plot.readAll()).count("stroke:rgb(100%,0%,0%)") : -1;
  };
  const auto plot = [this](const QString& name, const QString& proposed, const QString& chosen) {
    driver.menu("Tracer...").then([=, this] {
      auto& form = *dynamic_cast<atelier::desktop::PlotForm*>(QApplication::activeModalWidget());
      EXPECT_EQ(form.inks->currentData().toString(), proposed);
      const QImage before = form.picture().toImage();
      form.inks->setCurrentIndex(form.inks->findData(chosen));
      EXPECT_EQ(form.picture().toImage() == before, proposed == chosen) << "its picture";
      form.file->setText(file(name));
    });
    driver.press("Tracer").play();
  };
  driver.type("(entmake '((0 . \"CIRCLE\") (62 . 1) (370 . 211) (10 0. 0. 0.) (40 . 20.)))").play();
  plot("rouge.svg", "couleurs", "couleurs");
  EXPECT_EQ(strokes("rouge.svg"), 1);
  plot("noir.svg", "couleurs", "monochrome");
  EXPECT_EQ(strokes("noir.svg"), 0);
  EXPECT_EQ(lisp("(table-de-trace)").toString(), "monochrome") << "it stays with the drawing";
  EXPECT_FALSE(history().contains("(table-de-trace"));
  plot("encore.svg", "monochrome", "couleurs");
  EXPECT_EQ(strokes("encore.svg"), 1);
  EXPECT_EQ(lisp("(table-de-trace)").toString(), "couleurs");
  driver.type("U").type("U").play();
  EXPECT_EQ(lisp("(table-de-trace)").toString(), "");
}

TEST_F(Window, DroppedDrawingsOpenAndAreRemembered) {
  chosenFile = file("pose.dxf");
  driver.type("CIRCLE").type("0,0").type("20").play();
  ASSERT_TRUE(window.save());
  ASSERT_TRUE(window.closeTab(0));
  QMimeData data;
  data.setUrls({QUrl::fromLocalFile(file("pose.dxf"))});
  QDropEvent drop(QPointF(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  static_cast<QObject&>(window).event(&drop);
  ASSERT_EQ(window.tabs().count(), 1);
  EXPECT_EQ(count("CIRCLE"), 1);
  EXPECT_EQ(QSettings().value("recents").toStringList().value(0), file("pose.dxf"));
}

TEST_F(Window, SavingEndsTheRunningCommandFirst) {
  chosenFile = file("en-cours.dxf");
  driver.type("LINE").pick(0, 0).pick(10, 0).menu("Enregistrer").play();
  until([this] { return QFile::exists(chosenFile); });
  EXPECT_FALSE(window.drawing()->isRunning());
  EXPECT_TRUE(QFile::exists(chosenFile));
  EXPECT_EQ(count("LINE"), 1);
}

TEST_F(Window, TheThemeIsKept) {
  const bool before = atelier::desktop::isDarkTheme();
  driver.menu("Thème sombre").play();
  EXPECT_NE(atelier::desktop::isDarkTheme(), before);
  EXPECT_EQ(QSettings().value("theme").toString(), before ? "clair" : "sombre");
  driver.menu("Thème sombre").play();
  EXPECT_EQ(atelier::desktop::isDarkTheme(), before);
}

TEST_F(Window, PropertiesCountSeveralAndTellOfOne) {
  driver.type("CIRCLE").type("20,20").type("5").type("CIRCLE").type("40,20").type("5").menu("Sélectionner tout").play();
  EXPECT_EQ(window.properties().item(0, 1)->text(), "2");
  EXPECT_EQ(window.properties().item(1, 1)->text(), "Cercle");
  driver.key(Qt::Key_Escape).pick(25, 20).play();
  QMap<QString, QString> fields;
  for (int i = 0; i < window.properties().rowCount(); ++i)
    fields[window.properties().item(i, 0)->text()] = window.properties().item(i, 1)->text();
  EXPECT_EQ(fields["Type"], "Cercle");
  EXPECT_EQ(fields["Hauteur ou rayon"].toDouble(), 5);
}

// Dialogs that a program describes come as windows too.
TEST_F(Window, ADialogOfAProgramIsAWindow) {
  QFile dcl(file("essai.dcl"));
  ASSERT_TRUE(dcl.open(QIODevice::WriteOnly));
  dcl.write("essai : dialog { label = \"Essai\"; : edit_box { key = \"nom\"; label = \"Nom\"; } ok_cancel; }\n");
  dcl.close();
  driver.type(QString("(progn (setq d (load_dialog \"%1\")) (new_dialog \"essai\" d) (set_tile \"nom\" \"avant\")"
                      " (action_tile \"accept\" \"(setq v (get_tile \\\"nom\\\")) (done_dialog 1)\")"
                      " (setq r (start_dialog)) (unload_dialog d) (princ))")
                  .arg(file("essai.dcl")));
  driver.then([] {
    auto* const edit = QApplication::activeModalWidget()->findChild<QLineEdit*>();
    EXPECT_EQ(edit->text(), "avant");
    edit->selectAll();
    QKeyEvent key(QEvent::KeyPress, Qt::Key_X, Qt::NoModifier, "x");
    QApplication::sendEvent(edit, &key);
  });
  driver.press("OK").play();
  EXPECT_EQ(lisp("(list v r)").toList(), (QVariantList{"x", 1})) << history().toStdString();
}

}  // namespace
