// Dialogs for files: where they begin, what the sign ~ answers with, where results are proposed.
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QSettings>

#include "atelier/desktop/forms/forms.h"
#include "tests/desktop/desktop.h"

namespace {

struct FileChoice : kaveltest::Desktop {
  FileChoice() {
    QSettings().remove("dossier");
    window.fileAnswer = nullptr;
  }
  ~FileChoice() override { QSettings().remove("dossier"); }
  static QFileDialog& dialog() { return *dynamic_cast<QFileDialog*>(QApplication::activeModalWidget()); }
  // Chooses a file of the dialog that is open, by typing its path there.
  static void choose(const QString& path) {
    dialog().findChild<QLineEdit*>()->setText(path);
    QMetaObject::invokeMethod(&dialog(), "accept");
  }
};

TEST_F(FileChoice, TheLastFolderIsKept) {
  driver.type("CIRCLE").type("20,20").type("5").menu("Enregistrer").then([this] { choose(file("rue.dxf")); }).play();
  ASSERT_TRUE(QFile::exists(file("rue.dxf")));
  ASSERT_TRUE(window.closeTab(0));
  driver.menu("Ouvrir...").then([this] {
    EXPECT_EQ(QFileInfo(dialog().directory().path()).canonicalFilePath(), QFileInfo(folder.path()).canonicalFilePath());
    choose("rue.dxf");
  });
  driver.play();
  EXPECT_EQ(window.tabs().tabText(0), "rue.dxf");
  // Results are proposed beside the drawing.
  driver.menu("Tracer...").then([this] {
    auto& form = *dynamic_cast<atelier::desktop::PlotForm*>(QApplication::activeModalWidget());
    EXPECT_EQ(form.file->text(), file("rue.pdf"));
    form.reject();
  });
  driver.play();
}

TEST_F(FileChoice, TheSignAnswersAQuestionForAFile) {
  const QString survey = KAVEL_SOURCE "/exemples/rue-du-moulin.csv";
  driver.type("PLV-NOUVEAU").type("~").then([&] {
    EXPECT_TRUE(dialog().windowTitle().startsWith("Fichier du terrain naturel"))
        << dialog().windowTitle().toStdString();
    choose(survey);
  });
  for (const char* reply : {"3", "0,0", "10", "2.5", "150", ""}) driver.type(reply);
  driver.play();
  EXPECT_EQ(lisp("(plv-numero-profil (car (plv-profils)))").toString().toStdString(), "3") << history().toStdString();
  // A cancelled dialog leaves the question as it was; where no text is asked for, the sign is an answer like any other.
  driver.type("(setq s (getstring T \"Nom: \"))").type("~").then([] { dialog().reject(); }).type("a b").play();
  EXPECT_EQ(lisp("s").toString(), "a b");
  driver.type("(setq n (getint \"N: \"))").type("~").type("4").play();
  EXPECT_EQ(lisp("n").toInt(), 4);
}

// Without the sign, as FILEDIA says; a cancelled dialog leaves the question.
TEST_F(FileChoice, AQuestionForAFileOpensADialog) {
  window.opensFileDialogs = true;
  const auto opened = [] { return QApplication::activeModalWidget() != nullptr; };
  driver.type("CIRCLE").type("20,20").type("5").type("SAVEAS").until(opened).then([this] {
    EXPECT_TRUE(dialog().windowTitle().startsWith("Nom du fichier"));
    EXPECT_EQ(dialog().acceptMode(), QFileDialog::AcceptSave);
    choose(file("cercle.dxf"));
  });
  driver.play();
  EXPECT_TRUE(QFile::exists(file("cercle.dxf")));
  driver.type("OPEN").until(opened).then([] { dialog().reject(); }).type(file("cercle.dxf")).play();
  EXPECT_EQ(count("CIRCLE"), 1);
  driver.type("(setvar \"FILEDIA\" 0)").type("OPEN").type(file("cercle.dxf")).play();
  EXPECT_EQ(count("CIRCLE"), 1);
}

}  // namespace
