// Opening and saving.
// A damaged file is opened only when the user wants what is left of it, and is never saved over.
#include <QApplication>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <utility>

#include "atelier/commands/files/audit_report.h"
#include "atelier/desktop/files/recent_files.h"
#include "atelier/desktop/forms/file_choice.h"
#include "atelier/desktop/window/main_window.h"
#include "atelier/desktop/document/own_work.h"
#include "atelier/desktop/window/theme.h"

namespace atelier::desktop {
namespace {

constexpr qsizetype kMostTold = 15;  // lines of a message; the history has them all

// What to do with a survey that is taken for a drawing.
QString surveyHint(const QString& path) {
  static const QStringList surveys = {"csv", "txt", "xml", "xlsx", "asc", "tif"};
  if (!surveys.contains(QFileInfo(path).suffix().toLower())) return {};
  return QStringLiteral("\nUn levé se prend par le menu Profil, « Nouveau profil » ou « Profil d'une surface ».");
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
  return askFile(this, save ? FileUse::toWrite : FileUse::toRead, title, filter, suggested);
}

// At a question for a text, the sign ~ opens a dialog, whose file is the answer.
void MainWindow::answer(const QString& line) {
  Drawing* const d = drawing();
  if (!d) return;
  if (line.trimmed() != "~" || !d->waits() || !d->prompt()->takesSpaces) return d->type(line);
  const QString question = QString::fromStdString(d->prompt()->text).trimmed();
  answerByFile(filePrompt(*d->prompt()).value_or(FilePrompt{question, {}, FileUse::either}));
}

// At a prompt for a file that waits, unless FILEDIA says otherwise. A cancelled dialog leaves the prompt, to be typed at.
void MainWindow::offerFiles() {
  Drawing* const d = drawing();
  if (!opensFileDialogs || asksForFile_ || d->document().variables().integer("FILEDIA", 1) == 0) return;
  if (!filePrompt(*d->prompt())) return;
  QTimer::singleShot(0, d, [this, d] {
    if (d != drawing() || !d->waits() || asksForFile_ || QApplication::activeModalWidget()) return;
    if (const auto asked = filePrompt(*d->prompt())) answerByFile(*asked);
  });
}

void MainWindow::answerByFile(const FilePrompt& asked) {
  Drawing* const d = drawing();
  asksForFile_ = true;
  const QString suggested = asked.suggested.isEmpty() && asked.use != FileUse::toWrite
                                ? QString()
                                : besideDrawing(QString::fromStdString(d->document().path()), asked.suggested);
  const QString path =
      fileAnswer ? fileAnswer() : askFile(this, asked.use, asked.question, QStringLiteral("Tous (*)"), suggested);
  asksForFile_ = false;
  if (!path.isEmpty() && d->waits()) d->type(path);
}

bool MainWindow::open(const QString& path) {
  if (Drawing* d = drawing(); d && d->isBusy()) {
    whenIdle([this, path] { open(path); });
    return false;
  }
  if (Tab* tab = tabOf(path)) {
    tabs_->setCurrentWidget(tab->view);
    return true;
  }
  const std::string other = path.isEmpty() ? std::string() : DrawingLock::holder(path.toStdString());
  if (!other.empty() && ask(QStringLiteral("%1 : un autre programme travaille sur ce dessin (%2).\n\n"
                                           "L'ouvrir en lecture seule ? Il s'enregistrera sous un autre nom.")
                                .arg(path, QString::fromStdString(other)),
                            {QStringLiteral("Oui"), QStringLiteral("Non")}) != "oui")
    return false;
  if (!openOrRecover(path)) return false;
  if (!other.empty()) {
    front()->drawing->document().setReadOnly();
    showTitle(*front());
  }
  if (!path.isEmpty()) rememberFile(kRecentDrawings, path);
  return true;
}

MainWindow::Tab* MainWindow::tabOf(const QString& path) const {
  const QString whole = QFileInfo(path).canonicalFilePath();
  if (path.isEmpty() || whole.isEmpty()) return nullptr;
  for (const auto& tab : drawings_)
    if (QFileInfo(QString::fromStdString(tab->drawing->document().path())).canonicalFilePath() == whole)
      return tab.get();
  return nullptr;
}

bool MainWindow::openOrRecover(const QString& path) {
  try {
    openTab(path);
    return true;
  } catch (const Interrupted&) {
    commands_->print(QStringLiteral("\nOuverture de %1 arrêtée.\n").arg(path));
    return false;
  } catch (const FileError& error) {
    complain(QString::fromUtf8(error.what()) + surveyHint(path));
    return false;
  } catch (const Error& error) {
    return openDamaged(path, QString::fromUtf8(error.what()));
  }
}

// Opens or throws; the drawing in front is then current as before.
void MainWindow::openTab(const QString& path, std::vector<std::string>* messages) {
  auto tab = std::make_unique<Tab>();
  QApplication::setOverrideCursor(Qt::WaitCursor);
  try {
    const OwnWork work(work_, QStringLiteral("Ouverture"));
    tab->drawing = std::make_unique<Drawing>(path, messages);
  } catch (const Error&) {
    QApplication::restoreOverrideCursor();
    if (Drawing* d = drawing()) d->document().makeCurrent();
    throw;
  }
  QApplication::restoreOverrideCursor();
  if (path.isEmpty()) tab->drawing->setUntitled(nextName());
  tab->view = new DrawingView(*tab->drawing, this);
  tab->view->setGround(groundColour());
  wire(*tab);
  drawings_.push_back(std::move(tab));
  Tab& opened = *drawings_.back();
  tabs_->setCurrentIndex(tabs_->addTab(opened.view, opened.drawing->title()));
  opened.view->refresh();
  QTimer::singleShot(0, opened.view, [view = opened.view] { view->zoomExtents(); });
}

bool MainWindow::openDamaged(const QString& path, const QString& damage) {
  const QString answer =
      ask(QStringLiteral("Ce dessin est endommagé :\n%1\n\nOuvrir ce qui peut en être lu ?").arg(damage),
          {QStringLiteral("Oui"), QStringLiteral("Non")});
  if (answer != "oui") return false;
  std::vector<std::string> found;
  try {
    openTab(path, &found);
  } catch (const Interrupted&) {
    commands_->print(QStringLiteral("\nOuverture de %1 arrêtée.\n").arg(path));
    return false;
  } catch (const Error& error) {
    complain(QString::fromUtf8(error.what()));
    return false;
  }
  Tab& tab = *front();
  Document& document = tab.drawing->document();
  std::string text, last;
  for (const std::string& message : found) text += message + "\n";
  document.print(text);
  const AuditCount count = auditDrawing(document, true, [&](std::string_view line) {
    document.print(line);
    text += std::exchange(last, line);
  });
  text += count.profiles + last;
  QStringList told = QString::fromStdString(text).split('\n', Qt::SkipEmptyParts);
  if (const qsizetype more = told.size() - kMostTold; more > 0)
    told =
        told.mid(0, kMostTold) << QStringLiteral("... et %1 autres lignes, dans l'historique des commandes").arg(more);
  document.imp().modified = true;
  afterCommand(tab);
  complain(QStringLiteral("Ce qui pouvait être lu de %1 est ouvert. Il s'enregistre sous un autre nom.\n\n%2")
               .arg(tab.drawing->title(), told.join('\n')));
  return true;
}

bool MainWindow::save(bool underNewName) {
  Drawing* const d = drawing();
  if (!d) return false;
  QString path = QString::fromStdString(d->document().path());
  const bool damaged = !path.isEmpty() && path.toStdString() == d->document().imp().recoveredFrom;
  if (underNewName || damaged || d->document().isReadOnly() || path.isEmpty() ||
      !path.endsWith(".dxf", Qt::CaseInsensitive))
    path = chooseFile(true, QStringLiteral("Enregistrer le dessin"), QStringLiteral("Dessins DXF (*.dxf)"),
                      path.isEmpty() ? front()->suggestedName() : path);
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
    const OverwritingOthers allowed(document);
    const OwnWork work(work_, QStringLiteral("Enregistrement"));
    document.save(path.toStdString());
  } catch (const Interrupted&) {
    document.print("\nEnregistrement arrêté : le fichier est resté comme il était.\n");
    return false;
  } catch (const Error& error) {
    complain(QString::fromUtf8(error.what()));
    return false;
  }
  document.print("\nDessin enregistré dans " + path.toStdString() + ".\n");
  rememberFile(kRecentDrawings, path);
  afterCommand(*front());
  return true;
}

}  // namespace atelier::desktop
