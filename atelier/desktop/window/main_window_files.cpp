// Opening, saving, closing, recent files; automatic copies, and restoring them after a crash.
// A copy is kept in the autosave folder with the name of its drawing; closing the drawing removes it.
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>
#include <QSettings>
#include <QStandardPaths>
#include <QUuid>

#include "atelier/desktop/window/main_window.h"
#include "atelier/dxf/writing/writer.h"

namespace atelier::desktop {
namespace {

constexpr int kMostRecent = 10;

QDir autosaveFolder() {
  const QString given = qEnvironmentVariable("KAVEL_SAUVEGARDES");
  QDir folder(given.isEmpty() ? QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation) + "/sauvegardes"
                              : given);
  folder.mkpath(".");
  return folder;
}

}  // namespace

void MainWindow::complain(const QString& text) {
  if (questionAnswer) questionAnswer(text);
  else QMessageBox::warning(this, QStringLiteral("Kavel"), text);
}

QString MainWindow::ask(const QString& question, const QStringList& answers) {
  if (questionAnswer) return questionAnswer(question);
  QMessageBox box(QMessageBox::Question, QStringLiteral("Kavel"), question, QMessageBox::NoButton, this);
  QList<QPushButton*> buttons;
  for (const QString& answer : answers) buttons << box.addButton(answer, QMessageBox::AcceptRole);
  box.setEscapeButton(buttons.back());
  box.exec();
  return answers.value(buttons.indexOf(static_cast<QPushButton*>(box.clickedButton())), answers.back()).toLower();
}

QString MainWindow::chooseFile(bool save, const QString& title, const QString& filter, const QString& suggested) {
  if (fileAnswer) return fileAnswer();
  return save ? QFileDialog::getSaveFileName(this, title, suggested, filter)
              : QFileDialog::getOpenFileName(this, title, suggested, filter);
}

bool MainWindow::save(bool underNewName) {
  Drawing* const d = drawing();
  if (!d) return false;
  QString path = QString::fromStdString(d->document().path());
  if (underNewName || path.isEmpty() || !path.endsWith(".dxf", Qt::CaseInsensitive))
    path = chooseFile(true, QStringLiteral("Enregistrer le dessin"), QStringLiteral("Dessins DXF (*.dxf)"),
                      path.isEmpty() ? d->untitled : path);
  if (path.isEmpty()) return false;
  if (QFileInfo(path).suffix().isEmpty()) path += ".dxf";
  if (!path.endsWith(".dxf", Qt::CaseInsensitive)) {
    complain(QStringLiteral("Les dessins s'enregistrent en .dxf."));
    return false;
  }
  Document& document = d->document();
  const std::string why = document.objection(path.toStdString());
  const QString question = QStringLiteral("%1: %2. Le remplacer ?").arg(path, QString::fromStdString(why));
  if (!why.empty() && ask(question, {QStringLiteral("Oui"), QStringLiteral("Non")}) != "oui") return false;
  try {
    document.overwritesOthers = !why.empty();
    document.save(path.toStdString());
    document.overwritesOthers = false;
  } catch (const Error& error) {
    document.overwritesOthers = false;
    complain(QString::fromUtf8(error.what()));
    return false;
  }
  remember(path);
  QFile::remove(autosaveFolder().filePath(d->autosaveName));
  afterCommand(*front());
  return true;
}

bool MainWindow::closeTab(int index) {
  QWidget* const widget = tabs_->widget(index);
  tabs_->setCurrentIndex(index);
  Tab* const tab = front();
  if (!tab || tab->view != widget) return false;
  if (tab->drawing->isRunning()) {
    tab->drawing->cancel();
    return false;  // the command is being cancelled; closing again then works
  }
  if (tab->drawing->isModified()) {
    const QString answer = ask(QStringLiteral("Enregistrer les modifications de %1 ?").arg(tab->drawing->title()),
                               {QStringLiteral("Oui"), QStringLiteral("Non"), QStringLiteral("Annuler")});
    if (answer == "annuler" || (answer == "oui" && !save())) return false;
  }
  if (!tab->drawing->autosaveName.isEmpty()) {
    QFile::remove(autosaveFolder().filePath(tab->drawing->autosaveName));
    QFile::remove(autosaveFolder().filePath(tab->drawing->autosaveName + ".origine"));
  }
  tabs_->removeTab(index);
  delete widget;
  std::erase_if(drawings_, [tab](const auto& other) { return other.get() == tab; });
  showTab();
  return true;
}

void MainWindow::remember(const QString& path) {
  QSettings settings;
  QStringList recent = settings.value("recents").toStringList();
  const QString whole = QFileInfo(path).absoluteFilePath();
  recent.removeAll(whole);
  recent.prepend(whole);
  while (recent.size() > kMostRecent) recent.removeLast();
  settings.setValue("recents", recent);
}

void MainWindow::autosave() {
  for (const auto& tab : drawings_) {
    Drawing& d = *tab->drawing;
    if (!d.isModified() || d.isRunning()) continue;
    if (d.autosaveName.isEmpty()) d.autosaveName = QUuid::createUuid().toString(QUuid::WithoutBraces) + ".dxf";
    const QString copy = autosaveFolder().filePath(d.autosaveName);
    try {
      dxf::saveCopy(d.document().database(), copy.toStdString());
    } catch (const Error& error) {
      commands_->print("\n" + QString::fromUtf8(error.what()) + "\n");
      continue;
    }
    QFile note(copy + ".origine");
    if (note.open(QIODevice::WriteOnly))
      note.write(
          QByteArray::fromStdString(d.document().path().empty() ? d.untitled.toStdString() : d.document().path()));
  }
}

void MainWindow::recover() {
  QDir folder = autosaveFolder();
  for (const QString& name : folder.entryList({"*.dxf"}, QDir::Files)) {
    QFile note(folder.filePath(name + ".origine"));
    const QString origin = note.open(QIODevice::ReadOnly) ? QString::fromUtf8(note.readAll()) : name;
    const QString answer =
        ask(QStringLiteral("Kavel s'est arrêté sans enregistrer %1. Ouvrir la copie de sauvegarde ?").arg(origin),
            {QStringLiteral("Oui"), QStringLiteral("Non")});
    if (answer == "oui" && open(folder.filePath(name))) {
      // The copy becomes an unnamed drawing: saving asks for the name again.
      Drawing& d = *drawing();
      d.untitled = QFileInfo(origin).fileName();
      d.document().imp().path.clear();
      d.document().imp().modified = true;
      d.autosaveName = name;
      afterCommand(*front());
    } else {
      folder.remove(name);
      folder.remove(name + ".origine");
    }
  }
}

}  // namespace atelier::desktop
