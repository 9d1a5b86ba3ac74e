// The menu of the right button: the options of the running command, else what can be done with the selection.
#include <QMenu>

#include "atelier/base/text.h"
#include "atelier/desktop/document/lisp_bridge.h"
#include "atelier/desktop/window/main_window.h"
#include "atelier/selecting/pick.h"

namespace atelier::desktop {
namespace {

// What can be done with selected objects, as the menus have it.
constexpr struct {
  const char *text, *command;
} kObjectActions[] = {{"Effacer", "ERASE"},  {"Copier", "COPY"},   {"Déplacer", "MOVE"},
                      {"Tourner", "ROTATE"}, {"Échelle", "SCALE"}, {"Symétrie", "MIRROR"}};

constexpr qsizetype kLongestRepeat = 40;  // characters

}  // namespace

// Commands begin when the event loop is reached (Drawing::feed), not inside the menu's own event.
void MainWindow::addEntry(QMenu& menu, const QString& text, std::function<void()> action) {
  connect(menu.addAction(text), &QAction::triggered, this, std::move(action));
}

void MainWindow::showContextMenu(const QPoint& at) {
  Drawing* const d = drawing();
  if (!d || (d->isRunning() && !d->prompt())) return;
  auto* const menu = new QMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  if (const PromptInfo* prompt = d->prompt()) addPromptEntries(*menu, *prompt);
  else addObjectEntries(*menu);
  if (!d->isRunning()) addProfileEntry(*menu, view()->viewport().world(view()->mapFromGlobal(at)));
  menu->addSeparator();
  addEntry(*menu, QStringLiteral("Zoom étendu"), [this] { perform("@extents"); });
  addEntry(*menu, QStringLiteral("Accrochages aux objets..."), [this] { perform("@snaps"); });
  menu->popup(at);
}

void MainWindow::addPromptEntries(QMenu& menu, const PromptInfo& prompt) {
  const auto type = [this](const QString& word) {
    if (Drawing* d = drawing(); d && d->waits()) d->type(word);
  };
  addEntry(menu, QStringLiteral("Entrée"), [type] { type({}); });
  addEntry(menu, QStringLiteral("Annuler la commande"), [this] { escape(); });
  if (!prompt.keywords.empty()) menu.addSeparator();
  for (const std::string& keyword : prompt.keywords) {
    const QString word = QString::fromStdString(keyword);
    addEntry(menu, word, [type, word] { type(word); });
  }
}

void MainWindow::addObjectEntries(QMenu& menu) {
  const QString last = drawing()->lastLine;
  if (!last.trimmed().isEmpty() && last.size() <= kLongestRepeat)
    addEntry(menu, QStringLiteral("Répéter %1").arg(last), [this, last] { drawing()->feed({{last.toStdString()}}); });
  menu.addSeparator();
  if (view()->selection().empty()) {
    addEntry(menu, QStringLiteral("Annuler la dernière action"), [this] { perform("U"); });
    addEntry(menu, QStringLiteral("Rétablir"), [this] { perform("REDO"); });
    addEntry(menu, QStringLiteral("Sélectionner tout"), [this] { perform("@selectAll"); });
    return;
  }
  for (const auto& [text, command] : kObjectActions)
    addEntry(menu, QString::fromUtf8(text), [this, line = QString(command)] { perform(line); });
  addEntry(menu, QStringLiteral("Ne rien sélectionner"), [this] { escape(); });
}

// For the profile of what lies under the cursor.
void MainWindow::addProfileEntry(QMenu& menu, const AcGePoint3d& at) {
  Document& document = drawing()->document();
  AcDbStub* const stub = pickAt(document, at);
  if (!stub) return;
  const QString handle = QString::fromStdString(handleText(stub->handle));
  const QVariantList profile =
      atelier::desktop::ask(document,
                            QString("(plv-bureau-profil-de \"%1\" %2 %3)").arg(handle, number(at.x), number(at.y)))
          .toList();
  if (profile.size() == 2)
    addEntry(menu, QStringLiteral("Rendre courant le profil %1").arg(profile[0].toString()),
             [this, chosen = profile[1].toString()] { chooseProfile(chosen); });
}

void MainWindow::escape() {
  if (DrawingView* v = view()) v->escape();
}

}  // namespace atelier::desktop
