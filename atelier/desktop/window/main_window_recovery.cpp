// Copies of unsaved work, and offering those of a window that has crashed.
// A copy is made as soon as a command or an answer has changed something, also while a prompt or a dialog waits; where that would
// hold the user up, after a while.
#include <QApplication>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QSettings>
#include <algorithm>
#include <utility>

#include "atelier/desktop/window/main_window.h"

namespace atelier::desktop {
namespace {

constexpr qint64 kBearable = 500;   // milliseconds
constexpr qint64 kCostShare = 10;   // longer copies take at most this part of the time
constexpr int kComputing = 500;     // milliseconds until a drawing that computes is looked at again
constexpr int kLongestMinutes = 5;  // unless the settings say otherwise

}  // namespace

void MainWindow::copySoon() {
  if (copyCost_ <= kBearable) return autosave();
  if (copyTimer_.isActive()) return;
  const qint64 longest = QSettings().value("sauvegarde/minutes", kLongestMinutes).toLongLong() * 60 * 1000;
  copyTimer_.start(static_cast<int>(std::min(copyCost_ * kCostShare, longest)));
}

void MainWindow::autosave() {
  copyTimer_.stop();
  QElapsedTimer timer;
  timer.start();
  for (const auto& tab : drawings_) {
    // A computation is not disturbed, but what waits for the user may wait long.
    if (tab->drawing->computes() && (work_.isShown() || !QApplication::activeModalWidget()))
      copyTimer_.start(kComputing);
    else writeCopy(*tab);
  }
  copyCost_ = timer.elapsed();
}

void MainWindow::writeCopy(Tab& tab) {
  Drawing& d = *tab.drawing;
  if (!d.isModified()) return forgetCopy(tab);
  if (!d.takeChanged() && tab.copy && tab.copyTrouble.isEmpty()) return;
  if (!tab.copy) tab.copy = RecoveryFiles::fresh();
  const std::string& path = d.document().path();
  try {
    tab.copy->write(d.document().database(),
                    path.empty() ? tab.suggestedName() : QFileInfo(QString::fromStdString(path)).absoluteFilePath());
    tab.copyTrouble.clear();
  } catch (const Error& error) {
    const QString trouble = QString::fromUtf8(error.what());
    if (std::exchange(tab.copyTrouble, trouble) != trouble) commands_->print("\n" + trouble + "\n");
  }
}

void MainWindow::forgetCopy(Tab& tab) {
  if (tab.copy) tab.copy->remove();
  tab.copy.reset();
}

// That of its file, unless another drawing has it: the new one that the program begins with.
QString MainWindow::recoveredName(const Tab& tab) const {
  const QString name = QFileInfo(tab.origin).fileName();
  const bool taken = std::ranges::any_of(
      drawings_, [&](const auto& other) { return other.get() != &tab && other->drawing->fileName() == name; });
  return taken ? QFileInfo(name).completeBaseName() + QStringLiteral(" (récupéré).dxf") : name;
}

// A copy that isn't wanted now is offered again at the next start.
void MainWindow::recover() {
  for (auto& files : RecoveryFiles::abandoned()) {
    const QString answer =
        ask(files->description() + QStringLiteral("\n\nOuvrir la copie ?"),
            {QStringLiteral("Oui"), QStringLiteral("Supprimer la copie"), QStringLiteral("Plus tard")});
    if (answer.startsWith("supprimer")) files->remove();
    if (answer != "oui" || !openOrRecover(files->drawing())) continue;
    // The copy becomes an unnamed drawing: saving asks for the name again.
    Tab& tab = *front();
    tab.origin = files->origin();
    // A copy that is damaged itself stays as it is, for the next start.
    if (tab.drawing->document().imp().recoveredFrom.empty()) tab.copy = std::move(files);
    tab.drawing->setUntitled(recoveredName(tab));
    tab.drawing->document().imp().path.clear();
    tab.drawing->document().imp().modified = true;
    afterCommand(tab);
  }
}

}  // namespace atelier::desktop
