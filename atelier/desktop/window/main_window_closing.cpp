// Closing tabs and leaving the window.
// One question covers all that would be lost; until it is answered, and unless all of it can be done, nothing is closed.
#include <QCloseEvent>
#include <QSettings>
#include <QTimer>
#include <algorithm>
#include <utility>

#include "atelier/desktop/window/main_window.h"

namespace atelier::desktop {
namespace {

constexpr int kUnwinding = 100, kPatience = 20;  // milliseconds between looks at a cancelled command, and how many

}  // namespace

bool MainWindow::closeTab(int index) {
  QWidget* const widget = tabs_->widget(index);
  tabs_->setCurrentIndex(index);
  Tab* const tab = front();
  if (!tab || tab->view != widget) return false;
  if (tab->drawing->isBusy()) {
    tab->drawing->cancel();
    return false;  // the command is being cancelled; closing again then works
  }
  if (tab->drawing->isModified()) {
    const QString answer = ask(QStringLiteral("Enregistrer les modifications de %1 ?").arg(tab->drawing->title()),
                               {QStringLiteral("Oui"), QStringLiteral("Non"), QStringLiteral("Annuler")});
    if (answer == "annuler" || (answer == "oui" && !save())) return false;
  }
  dropTab(*tab);
  return true;
}

void MainWindow::dropTab(Tab& tab) {
  forgetCopy(tab);
  tabs_->removeTab(tabs_->indexOf(tab.view));
  delete tab.view;
  std::erase_if(drawings_, [&tab](const auto& other) { return other.get() == &tab; });
  showTab();
}

std::vector<MainWindow::Tab*> MainWindow::unsaved() const {
  std::vector<Tab*> found;
  for (const auto& tab : drawings_)
    if (tab->drawing->isModified()) found.push_back(tab.get());
  return found;
}

bool MainWindow::isRunning() const {
  return std::ranges::any_of(drawings_, [](const auto& tab) { return tab->drawing->isBusy(); });
}

QString MainWindow::askAboutLeaving(const std::vector<Tab*>& unsaved) {
  const QString running = isRunning() ? QStringLiteral("Une commande est en cours. ") : QString();
  const QString yes = QStringLiteral("Oui"), no = QStringLiteral("Non"), cancel = QStringLiteral("Annuler");
  if (unsaved.empty())
    return running.isEmpty() ? "non" : ask(running + QStringLiteral("L'interrompre et quitter ?"), {yes, cancel});
  QStringList names;
  for (const Tab* tab : unsaved) names << tab->drawing->title();
  return ask(running + QStringLiteral("Enregistrer les modifications de %1 avant de quitter ?").arg(names.join(", ")),
             {yes, no, cancel});
}

void MainWindow::closeEvent(QCloseEvent* event) {
  const std::vector<Tab*> asked = unsaved();
  const QString answer = askAboutLeaving(asked);
  if (answer == "annuler") return event->ignore();
  if (isRunning()) {
    // The command waits in a call beneath this one, so it can only end after it.
    event->ignore();
    for (const auto& tab : drawings_) tab->drawing->cancel();
    return leaveAfterCommands(answer, asked, kPatience);
  }
  if (!leave(answer, asked)) return event->ignore();
  QSettings settings;
  settings.setValue("fenetre", saveGeometry());
  settings.setValue("panneaux", saveState());
  settings.setValue("commandes", commands_->lines());
}

// The command has asked about its own drawing; the others are still to be asked about.
void MainWindow::quit(Tab& tab) {
  QTimer::singleShot(0, tab.view, [this, &tab] {
    const bool before = std::exchange(tab.drawing->document().imp().modified, false);
    if (!close()) tab.drawing->document().imp().modified = before;
  });
}

bool MainWindow::leave(const QString& answer, const std::vector<Tab*>& asked) {
  const auto saved = [this](const Tab* tab) {
    tabs_->setCurrentWidget(tab->view);
    return save();
  };
  if (answer == "oui" && !std::ranges::all_of(asked, saved)) return false;
  while (!drawings_.empty()) dropTab(*drawings_.back());
  return true;
}

// A command that doesn't end keeps the window open; one that changed a drawing at its end makes the question come again.
void MainWindow::leaveAfterCommands(const QString& answer, const std::vector<Tab*>& asked, int patience) {
  QTimer::singleShot(kUnwinding, this, [this, answer, asked, patience] {
    if (isRunning()) {
      if (patience > 0) leaveAfterCommands(answer, asked, patience - 1);
    } else if (unsaved() != asked || leave(answer, asked)) {
      close();
    }
  });
}

}  // namespace atelier::desktop
